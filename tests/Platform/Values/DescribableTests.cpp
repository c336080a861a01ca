// What a format prints of the types of the standard library and of Qt, and what does not compile.

#include <KTUtility/NSDecimalNumber>
#include <KTUtility/NSError>
#include <KTUtility/NSStringFormat>

#include "support/TestField.h"
#include "support/TestSupport.h"

#include <QPointer>
#include <QSet>
#include <QSize>

#include <array>
#include <chrono>
#include <filesystem>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <set>
#include <span>
#include <system_error>
#include <thread>
#include <tuple>
#include <variant>
#include <vector>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;
using namespace std::string_literals;

using KTPrivate::Describable;

namespace {
struct Unspeakable
{
};

struct Telling
{
    QString description() const { return u"told"_s; }
};

std::string printed(const auto &value)
{
    return NSString::stringWithFormat(u"%@", value).toStdString();
}

// What nothing can be said of does not compile, wherever it stands.
static_assert(!Describable<Unspeakable>);
static_assert(!Describable<std::vector<Unspeakable>>);
static_assert(!Describable<std::optional<Unspeakable>>);
static_assert(!Describable<std::map<int, Unspeakable>>);
static_assert(!Describable<std::pair<int, Unspeakable>>);
static_assert(!Describable<std::variant<int>>);
static_assert(!Describable<std::function<void()>>);
static_assert(!Describable<std::thread::id>);
static_assert(Describable<std::vector<std::optional<Telling>>>);
} // namespace

TEST(Describable, TextsOfEveryKindAreTexts)
{
    EXPECT_EQ(printed(QUtf8StringView("ab")), "ab");
    EXPECT_EQ(printed(QAnyStringView("ab")), "ab");
    EXPECT_EQ(printed(u8"é"), "é");
    EXPECT_EQ(printed(u8"é"s), "é");
    EXPECT_EQ(printed(u"é"s), "é");
    EXPECT_EQ(printed(U"é😀"), "é😀");
    EXPECT_EQ(printed(U"é"s), "é");
    EXPECT_EQ(printed(L"é"), "é");
    EXPECT_EQ(printed(L"é"s), "é");
    EXPECT_EQ(printed(std::wstring_view(L"w")), "w");
    EXPECT_EQ(printed(std::filesystem::path("/a/é")), "/a/é");
    EXPECT_EQ(printed(static_cast<const wchar_t *>(nullptr)), "(null)");
    EXPECT_EQ(printed(static_cast<const char8_t *>(nullptr)), "(null)");
}

TEST(Describable, ContainersAreTheirElements)
{
    const std::string list = "(\n    1,\n    2\n)";
    EXPECT_EQ(printed(QList<int>{1, 2}), list);
    EXPECT_EQ(printed(std::vector<long>{1, 2}), list);
    EXPECT_EQ(printed(std::set<short>{2, 1}), list);
    EXPECT_EQ(printed(std::array<unsigned, 2>{1, 2}), list);
    EXPECT_EQ(printed(std::vector<bool>{true, false}), "(\n    1,\n    0\n)");
    const int array[] = {1, 2};
    EXPECT_EQ(printed(array), list);
    EXPECT_EQ(printed(std::span(array)), list);
    EXPECT_EQ(printed(QSet<QString>{u"one"_s}), "(\n    one\n)");
    EXPECT_EQ(printed(std::vector<std::string>{"a b"}), "(\n    \"a b\"\n)");
    EXPECT_EQ(printed(std::vector<const char *>{"a", nullptr}), "(\n    a,\n    (null)\n)");
    EXPECT_EQ(printed(std::vector<std::vector<int>>{{}}), "(\n    (\n    )\n)");
    EXPECT_EQ(printed(std::tuple(1, u"a"_s, 2.5)), "(\n    1,\n    a,\n    2.5\n)");
}

TEST(Describable, MapsAreTheirEntries)
{
    EXPECT_EQ(printed(std::map<std::string, int>{{"a", 1}}), "{\n    a = 1;\n}");
    EXPECT_EQ(printed(QHash<int, QString>{{1, u"a"_s}}), "{\n    1 = a;\n}");
    EXPECT_EQ(printed(QMap<QString, QList<int>>{{u"a"_s, {1}}}),
              "{\n    a = (\n        1\n    );\n}");
}

TEST(Describable, HoldersAreWhatTheyHold)
{
    EXPECT_EQ(printed(std::optional<int>(3)), "3");
    EXPECT_EQ(printed(std::optional<QString>()), "(null)");
    EXPECT_EQ(printed(std::optional(std::vector<int>{1})), "(\n    1\n)");
    TestField field(u"name"_s);
    const std::string described = printed(&field);
    EXPECT_TRUE(described.starts_with("<TestField: 0x"));
    EXPECT_EQ(printed(QPointer<TestField>(&field)), described);
    EXPECT_EQ(printed(std::shared_ptr<QObject>(&field, [](QObject *) {})), described);
    EXPECT_EQ(printed(std::vector<TestField *>{&field}), "(\n    " + described + "\n)");
    EXPECT_EQ(printed(std::unique_ptr<int>()), "(null)");
    EXPECT_TRUE(printed(std::make_unique<int>(4)).starts_with("0x"));
}

TEST(Describable, DurationsHaveTheirUnit)
{
    EXPECT_EQ(printed(15ms), "15ms");
    EXPECT_EQ(printed(-2s), "-2s");
    EXPECT_EQ(printed(90min), "90min");
    EXPECT_EQ(printed(3h), "3h");
    EXPECT_EQ(printed(7ns), "7ns");
    EXPECT_EQ(printed(7us), "7µs");
    EXPECT_EQ(printed(std::chrono::days(2)), "2d");
    EXPECT_EQ(printed(std::chrono::duration<double>(0.5)), "0.5s");
    EXPECT_EQ(printed(std::chrono::duration<int, std::ratio<2, 3>>(4)), "4[2/3]s");
    EXPECT_TRUE(printed(std::chrono::sys_days(2008y / 3 / 5)).starts_with("2008-03-0"));
}

TEST(Describable, OthersSayWhatTheyAre)
{
    EXPECT_EQ(printed(Telling()), "told");
    EXPECT_EQ(printed(std::vector<Telling>(1)), "(\n    told\n)");
    EXPECT_EQ(printed(NSDecimalNumber::decimalNumberWithString(u"12.50")), "12.5");
    EXPECT_EQ(printed(NSError(NSCocoaErrorDomain, 2048, u"no"_s)),
              NSError(NSCocoaErrorDomain, 2048, u"no"_s).description().toStdString());
    EXPECT_EQ(printed(std::make_error_code(std::errc::io_error)),
              "generic: " + std::make_error_code(std::errc::io_error).message());
    EXPECT_EQ(printed(QSize(1, 2)), "QSize(1, 2)");
    EXPECT_EQ(printed(std::vector<char>{'a'}), "(\n    a\n)");
}

TEST(Describable, WhatIsNoCharacterIsReplaced)
{
    const char32_t beyond = 0x110000;
    const std::string replaced = "\uFFFD";
    EXPECT_EQ(printed(beyond), replaced);
    EXPECT_EQ(printed(std::u32string{U'a', beyond}), "a" + replaced);
    EXPECT_EQ(printed(QVariant::fromValue(beyond)), replaced);
    const char32_t text[] = {U'a', beyond, U'b', 0};
    EXPECT_EQ(printed(static_cast<const char32_t *>(text)), "a" + replaced + "b");
}

TEST(Describable, DataIsATextForTextConversions)
{
    EXPECT_EQ(NSString::stringWithFormat(u"%s", QByteArray("/tmp/é")), u"/tmp/é"_s);
    EXPECT_EQ(NSString::stringWithFormat(u"%.2s|%5s", QByteArray("abc"), QByteArray("abc")),
              u"ab|  abc"_s);
    EXPECT_EQ(printed(QByteArray("abc")), "<616263>");
}
