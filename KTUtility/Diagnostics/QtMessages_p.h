#pragma once

#include <QByteArray>
#include <QStringView>

#include <string_view>

/// The two ways between the logger and Qt's messages. What comes from one side does not go back to
/// it, so that both may be on.
namespace KTPrivate::QtMessages {
/// Whether messages of Qt's categories are handed to the shared logger. Qt's message handler that
/// was there before gets what the logger does not take, and is back when this is off.
void setHandedToLogger(bool isHanded);
bool areHandedToLogger();

/// The category of Qt that messages of loggers go to; empty for none.
void setCategory(const QByteArray &category);
QByteArray category();

/// Hands a message of a logger to Qt's category.
/// \return false if there is none, or if the message came from Qt.
bool take(QStringView component, int level, std::string_view fileName, int lineNumber,
          QStringView message);
} // namespace KTPrivate::QtMessages
