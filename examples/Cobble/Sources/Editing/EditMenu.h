#pragma once

#include "EditCommands.h"

#include <QCoreApplication>

class QMenu;
class QObject;

/// The items of the Edit menu that cut, copy and paste, and those that make records of others.
class EditMenu
{
    Q_DECLARE_TR_FUNCTIONS(EditMenu)

public:
    EditMenu() = delete;

    /// Appends them to a menu.
    /// \param context what the commands live as long as.
    static void addItems(QMenu *menu, QObject *context, const EditCommands &commands);
};
