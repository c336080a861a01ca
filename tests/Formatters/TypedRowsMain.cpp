#include "TypedRows.h"

#include "support/InZone.h"
#include "support/TestSupport.h"

#include <QMap>
#include <QTextStream>

#include <algorithm>
#include <array>
#include <iterator>

// Prints how the formatters read what people type; scripts/typed says how it is called.

using namespace Qt::StringLiterals;

namespace {
QTextStream &out()
{
    static QTextStream stream(stdout);
    return stream;
}

/// How many rows were read, wrong and rejected.
struct Counts
{
    std::array<int, 3> of{};

    void add(TypedResult::Outcome outcome) { ++of[outcome]; }
    int rows() const { return of[0] + of[1] + of[2]; }
};

const char *nameOf(TypedResult::Outcome outcome)
{
    constexpr std::array Names{"read", "wrong", "rejected"};
    return Names[outcome];
}

void printCounts(const QString &name, const Counts &counts)
{
    const auto share = [&counts](int count) {
        return u"%1 %"_s.arg(100.0 * count / counts.rows(), 5, 'f', 1);
    };
    out() << name.leftJustified(12) << qSetFieldWidth(6) << Qt::right << counts.rows()
          << counts.of[TypedResult::Read] << qSetFieldWidth(9)
          << share(counts.of[TypedResult::Read]) << qSetFieldWidth(7)
          << counts.of[TypedResult::Wrong] << qSetFieldWidth(9)
          << share(counts.of[TypedResult::Wrong]) << qSetFieldWidth(10)
          << counts.of[TypedResult::Rejected] << qSetFieldWidth(0) << Qt::endl;
}

using LocaleCounts = QMap<QString, Counts>;

LocaleCounts countsOf(const QString &type, bool readsCommonForms)
{
    LocaleCounts counts;
    for (const TypedRow &row : TypedRows::ofType(type)) {
        const TypedResult::Outcome outcome = TypedRows::resultOf(row, readsCommonForms).outcome;
        counts[{}].add(outcome);
        counts[row.locale].add(outcome);
    }
    return counts;
}

/// The types, and then each type's locales.
void printTable(bool readsCommonForms)
{
    out() << "type          rows  read             wrong            rejected" << Qt::endl;
    QList<LocaleCounts> all;
    for (const QString &type : TypedRows::types()) {
        all += countsOf(type, readsCommonForms);
        printCounts(type, all.last().take({}));
    }
    for (qsizetype index = 0; index < all.size(); ++index) {
        out() << Qt::endl << TypedRows::types()[index] << Qt::endl;
        for (auto locale = all[index].cbegin(); locale != all[index].cend(); ++locale)
            printCounts(u"  "_s + locale.key(), locale.value());
    }
}

/// One line a row: locale, text, meaning, what was read, in which form, or why not.
void printRows(const QString &outcome, const QString &type, bool readsCommonForms)
{
    for (const TypedRow &row : TypedRows::ofType(type)) {
        const TypedResult result = TypedRows::resultOf(row, readsCommonForms);
        if (outcome != u"all" && outcome != QLatin1String(nameOf(result.outcome)))
            continue;
        const QString note = result.value.isNull() ? result.reason : result.reading.form;
        out() << QStringList{QLatin1String(nameOf(result.outcome)),
                             row.locale,
                             row.text,
                             row.value,
                             result.value,
                             note}
                     .join(u'\t')
              << Qt::endl;
    }
}

/// What tests/data/typed/plain.jsonl holds.
void printResults(bool readsCommonForms)
{
    for (const QString &type : TypedRows::types()) {
        for (const TypedRow &row : TypedRows::ofType(type)) {
            const TypedResult result = TypedRows::resultOf(row, readsCommonForms);
            out() << TypedRows::written(row, result) << Qt::endl;
        }
    }
}

int run(QStringList arguments)
{
    const bool readsCommonForms = !arguments.removeOne(u"--plain");
    if (arguments.isEmpty())
        printTable(readsCommonForms);
    else if (arguments == QStringList{u"--results"_s})
        printResults(readsCommonForms);
    else if (arguments.size() == 3 && arguments[0] == u"--rows" &&
             TypedRows::types().contains(arguments[2]))
        printRows(arguments[1], arguments[2], readsCommonForms);
    else
        return EXIT_FAILURE;
    return EXIT_SUCCESS;
}
} // namespace

int main(int argc, char **argv)
{
    testing::InitGoogleTest(&argc, argv);
    testing_support::pinEnvironment("offscreen");
    const testing_support::InZone zone("UTC");
    QStringList arguments;
    for (int index = 1; index < argc; ++index)
        arguments += QString::fromLocal8Bit(argv[index]);
    return run(arguments);
}
