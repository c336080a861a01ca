#include "Library/Library.h"

#include "support/TestSupport.h"

using namespace Qt::StringLiterals;

namespace {
QList<Library> librariesNamed(const QStringList &names)
{
    QList<Library> libraries;
    for (const QString &name : names) {
        Library library;
        library.name = name;
        libraries += library;
    }
    return libraries;
}

QString foundName(const QString &name, const QStringList &names)
{
    const std::optional<Library> found = Libraries::named(name, librariesNamed(names));
    return found ? found->name : QString();
}
} // namespace

TEST(Library, TitlesOfFieldsFallBack)
{
    LibraryField field;
    field.columnName = u"kt_field"_s;
    EXPECT_EQ(field.title(), u"kt_field"_s);
    field.label = u"Label"_s;
    EXPECT_EQ(field.title(), u"Label"_s);
    field.header = u"Header"_s;
    EXPECT_EQ(field.title(), u"Header"_s);
}

TEST(Library, KnowsItsColumnsOfMedia)
{
    Library library;
    EXPECT_TRUE(library.mediaColumns().isEmpty());
    for (const auto &[name, type] :
         {std::pair(u"kt_name"_s, FieldType::Text), std::pair(u"kt_photo"_s, FieldType::Media),
          std::pair(u"kt_age"_s, FieldType::Number), std::pair(u"kt_scan"_s, FieldType::Media)}) {
        LibraryField field;
        field.columnName = name;
        field.type = type;
        library.fields += field;
    }
    EXPECT_EQ(library.mediaColumns(), QSet<QString>({u"kt_photo"_s, u"kt_scan"_s}));
}

TEST(Library, TheSameNameIsFoundFirst)
{
    EXPECT_EQ(foundName(u"things"_s, {u"Things"_s, u"things"_s}), u"things"_s);
    EXPECT_EQ(foundName(u"Things"_s, {u"Things"_s, u"things"_s}), u"Things"_s);
}

TEST(Library, ThenOneThatDiffersInCaseOnly)
{
    EXPECT_EQ(foundName(u"THINGS"_s, {u"Animals"_s, u"Things"_s}), u"Things"_s);
    EXPECT_EQ(foundName(u"straße"_s, {u"STRASSE"_s, u"Straße"_s}), u"Straße"_s);
}

TEST(Library, APartOfANameFindsNothing)
{
    EXPECT_TRUE(foundName(u"Thing"_s, {u"Things"_s}).isNull());
    EXPECT_TRUE(foundName(u""_s, {u"Things"_s}).isNull());
    EXPECT_TRUE(foundName(u"Things"_s, {}).isNull());
}
