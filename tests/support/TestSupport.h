#pragma once

#include <QByteArray>
#include <QJsonObject>
#include <QList>
#include <QString>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <ctime>
#include <functional>
#include <ostream>

// What the tests share: a pinned environment, tables, and texts that gtest can print.

/// gtest prints texts through this.
void PrintTo(const QString &text, std::ostream *stream);
void PrintTo(const QStringView &text, std::ostream *stream);
class QVariant;
void PrintTo(const QVariant &value, std::ostream *stream);

namespace testing_support {
/// Pins locale, time zone, home folder and Qt's platform plug-in, before anything runs.
void pinEnvironment(const char *platform);

/// The same but for locale and time zone, which stay those that the environment sets, for tests of
/// what has to hold in all of them.
void pinAllButLocaleAndZone(const char *platform);

/// Runs the tests of a program, and does not let it end well before they are over: a test that
/// leaves the process takes those behind it along.
/// \return what main() returns.
int runTests(int argc, char **argv);

/// Points the home folder at a new empty folder and returns it; the environment of the process is
/// pinned to it until the next call. All tests start with one.
QString useFreshHome();

/// The one QApplication of the process (offscreen), made on first use.
void needApplication();

/// Lets everything happen that waits for the event loop.
void turn();

/// A test that has windows: there is an application before its members are made.
class WindowedTest : public testing::Test
{
protected:
    WindowedTest() { needApplication(); }

    static void turn() { testing_support::turn(); }
};

/// Time that this process has used of the processor, for what has to stay linear: other work on the
/// machine does not count.
class ProcessorTime
{
public:
    /// Since this was made, in milliseconds.
    qint64 elapsed() const { return qint64(std::clock() - _start) * 1000 / CLOCKS_PER_SEC; }

private:
    std::clock_t _start = std::clock();
};

/// The rows of a table in tests/data: one JSON object a line.
QList<QJsonObject> rowsOf(const QString &table);

/// What \a action writes to standard error.
QString standardErrorOf(const std::function<void()> &action);

/// The bytes of a file; empty if it cannot be read.
QByteArray contentsOf(const QString &path);
/// Writes a file and the folders that it needs.
void writeFile(const QString &path, const QByteArray &contents);

/// A text of 1 MB and more, made of \a piece.
QString megabyteOf(const QString &piece);

/// Texts that break what was written for friendly input: nil, empty, lone surrogates, combining
/// sequences, embedded NUL, right-to-left, other scripts, 1 MB.
const QList<QString> &hostileTexts();
} // namespace testing_support

/// Expects that \a statement throws an NSException with this name and reason.
#define EXPECT_RAISES(statement, expectedName, expectedReason)                                     \
    EXPECT_THROW(                                                                                  \
        {                                                                                          \
            try {                                                                                  \
                statement;                                                                         \
            } catch (const NSException &exception) {                                               \
                EXPECT_EQ(exception.name(), expectedName);                                         \
                EXPECT_EQ(exception.reason(), expectedReason);                                     \
                throw;                                                                             \
            }                                                                                      \
        },                                                                                         \
        NSException)
