#pragma once

#include <KTUtility/KTUtilityExport.h>

#include <QObject>
#include <QWidget>

#include <functional>

/// Modal sessions, sheets, and what waits for the next iteration of the event loop. For the main
/// thread.
///
/// \code
/// NSApplication::beginSheet(dialog, window);       // blocks the window only, returns at once
/// …
/// NSApplication::endSheet(dialog);
///
/// NSApplication::runModalForWindow(dialog);        // blocks all other windows until stopModal()
/// \endcode
namespace NSApplication {
/// Shows a window and blocks all others until the session stops: by stopModal(), or because the
/// window is hidden or destroyed. Sessions nest.
/// \return the code that the session was stopped with; 0 for the latter.
KTUTILITY_EXPORT int runModalForWindow(QWidget *window);
/// Stops the innermost session; nothing without one.
KTUTILITY_EXPORT void stopModal(int code = 0);
/// The window of the innermost session; null without one.
KTUTILITY_EXPORT QWidget *modalWindow();
/// Whether there is a session that has not ended.
KTUTILITY_EXPORT bool isModalSessionRunning();

/// Shows a window as a sheet of another one, which it blocks.
KTUTILITY_EXPORT void beginSheet(QWidget *sheet, QWidget *modalForWindow);
/// Takes the block away, and gives the keyboard back to the window that was blocked; hiding the
/// sheet is the caller's business. Nothing for other windows.
KTUTILITY_EXPORT void endSheet(QWidget *sheet);
/// Whether a window is a sheet now.
KTUTILITY_EXPORT bool isSheet(const QWidget *window);

/// Has a function called in a later iteration of the event loop, unless the receiver is destroyed
/// by then. What is asked for first is called first. During modal sessions nothing is called; it
/// waits for their end. What a function raises is written to the console; those behind it are
/// called all the same.
KTUTILITY_EXPORT void performOnNextTurn(QObject *receiver, std::function<void()> perform);
} // namespace NSApplication
