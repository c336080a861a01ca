#pragma once

#include "KTLogger.h"

#include <QList>
#include <QMutex>
#include <QStringList>

/// Catches what is logged while it lives, for tests of code that logs.
///
/// The components given are on for its lifetime, whatever the settings say; messages go to it and
/// neither to the file nor to the console; settings that change meanwhile are saved without what a
/// capture switched on. Captures may be nested: the
/// innermost one catches. Messages of other threads are caught, too; let them end before it does.
///
/// \code
/// KTLogCapture capture(kLog_ImportDialog, 4);
/// importer.read(path);
/// EXPECT_EQ(capture.messages(), QStringList{"contacts.csv: 300 rows"});
/// \endcode
class KTUTILITY_EXPORT KTLogCapture
{
public:
    /// One caught message.
    struct Entry
    {
        /// The component that it was logged under.
        QString component;
        /// The level that it was logged at.
        int level = 0;
        /// The name of the source file that logged it, without its folder.
        QString file;
        /// The line of that file.
        int lineNumber = 0;
        /// Its text.
        QString message;
    };

    /// Catches messages of \a component up to \a level.
    explicit KTLogCapture(const QString &component, int level = 7,
                          KTLogger *logger = KTLogger::sharedLogger());
    /// Puts the logger back as it was.
    ~KTLogCapture();
    KTLogCapture(const KTLogCapture &) = delete;
    KTLogCapture &operator=(const KTLogCapture &) = delete;

    /// Catches another component, too, or the same one at another level.
    void setLevelOfComponent(int level, const QString &component);

    /// What was caught so far, in order.
    QList<Entry> entries() const;
    /// The texts of what was caught so far, in order.
    QStringList messages() const;
    /// Forgets what was caught so far.
    void clear();

private:
    friend class KTLogger;
    /// Adds what this and the captures around it switched on, the inner ones last.
    void addLevels(QVariantMap *levels) const;
    void add(const QString &component, int level, std::string_view file, int lineNumber,
             QStringView message);

    KTLogger *_logger;
    KTLogCapture *_outer;
    QVariantMap _levels;
    mutable QMutex _mutex;
    QList<Entry> _entries;
};
