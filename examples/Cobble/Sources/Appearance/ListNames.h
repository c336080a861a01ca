#pragma once

class QWidget;

// The lists that boxes drop down, for who has a window read aloud.

namespace ListNames {
/// Gives the list of each box in a window the name of its box. To be called when all boxes have their
/// own: by the accessible name, or the label that they are the buddies of.
void give(const QWidget *window);
} // namespace ListNames
