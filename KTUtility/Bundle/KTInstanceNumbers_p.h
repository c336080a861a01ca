#pragma once

#include <KTUtility/KTUtilityExport.h>

#include <QByteArray>
#include <QString>

#include <functional>

/// Looks for a number that no copy of a file has yet.
///
/// The number is the one that the search by steps gives: 0 to 3 one by one, then doubling from 4 up
/// to a free number, halving down to one that is taken, and up again one by one. The folder is
/// opened once and asked for each number.
class KTUTILITY_EXPORT KTInstanceNumbers
{
public:
    /// For the file at \a path, whose copies are "name.N.extension" in its folder.
    explicit KTInstanceNumbers(const QString &path);
    ~KTInstanceNumbers();
    KTInstanceNumbers(const KTInstanceNumbers &) = delete;
    KTInstanceNumbers &operator=(const KTInstanceNumbers &) = delete;

    /// The number.
    /// \param willAsk is called with each number before it is looked for; may be empty.
    /// \return −1 if no number is free.
    int next(const std::function<void(int)> &willAsk = {});

private:
    bool exists(int number);
    int freeUpperBound(int *lower);
    int firstFree(int from, int to);

    int _folder;
    QByteArray _prefix;
    QByteArray _suffix;
    // The name that was asked for last.
    QByteArray _name;
    std::function<void(int)> _willAsk;
};
