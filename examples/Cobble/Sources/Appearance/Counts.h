#pragma once

#include <QCoreApplication>
#include <QString>

/// Numbers of records as the window shows them, in its language and with the user's separators.
///
/// \code
/// tr("Deleted %1 record(s)", nullptr, Counts::plural(count)).arg(Counts::number(count));
/// \endcode
class Counts
{
    Q_DECLARE_TR_FUNCTIONS(Counts)

public:
    Counts() = delete;

    /// "100,000"
    static QString number(qint64 count);
    /// What tr() chooses a form by.
    static int plural(qint64 count);
    /// "1 record", "100,000 records".
    static QString records(qint64 count);
    /// "2 of 100,000 records".
    static QString recordsOf(qint64 shown, qint64 all);
};
