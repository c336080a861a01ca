#pragma once

#include <KTUtility/Platform/Numbers/NSFormatter.h>

#include <QValidator>
#include <QVariant>

namespace KTPrivate {
/// What an editor makes of a typed text: a value, or why there is none.
struct TextReading
{
    bool isRead = false;
    QVariant value;
    QString reason; ///< not empty if nothing was read

    /// Has a formatter read a text. One without letters is nil; without formatter, a text is its
    /// own value.
    /// \param formatter may be null.
    static TextReading of(const NSFormatter *formatter, const QString &text);
    /// How far a text is from one that the formatter reads: Intermediate where more may be typed.
    static QValidator::State judge(const NSFormatter *formatter, const QString &text);
    /// The first text that can be read of those that a person may have meant; nil if there is none.
    static QString completed(const NSFormatter *formatter, const QString &text);
};

/// Why a value could not be set, for a person.
/// \param reason as an object or key-value coding gave it; the latter is not for people.
QString rejectionForPeople(const QVariant &value, const QString &reason);

/// What editors and columns show of a value; "" for nil and the markers of a selection.
/// \param formatter may be null: then texts and numbers are shown as they are.
QString shownText(const NSFormatter *formatter, const QVariant &value);
/// What editing begins with; likewise.
QString editingText(const NSFormatter *formatter, const QVariant &value);
/// The colour of the letters that a formatter gives a value, such as red; nil if it gives none.
QVariant shownColour(const NSFormatter *formatter, const QVariant &value);
} // namespace KTPrivate
