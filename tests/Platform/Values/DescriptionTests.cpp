// The texts of values of all types, as %@ prints them.

#include <KTUtility/NSObject>

#include "support/TestSupport.h"

#include <QDateTime>
#include <QJsonArray>
#include <QPointer>
#include <QRegularExpression>
#include <QSet>
#include <QSharedPointer>
#include <QSize>
#include <QUrl>

#include <vector>

using namespace Qt::StringLiterals;

namespace {
/// A value with one of its own type, which is made when it is asked for.
class NextPlace
{
    Q_GADGET
    Q_PROPERTY(NextPlace next READ next)

public:
    NextPlace next() const { return {}; }
};

/// A value with properties and no text.
class NamedPlace
{
    Q_GADGET
    Q_PROPERTY(int x MEMBER x)
    Q_PROPERTY(QString name MEMBER name)

public:
    int x = 0;
    QString name;
};

enum class PlainColour { Red, Green = 7 };

struct WithoutWords
{
};

/// An object that says what it is by a property.
class TellingObject : public QObject
{
    Q_OBJECT
    Q_PROPERTY(QString description MEMBER text)

public:
    QString text;
};

template<typename T>
QString description(const T &value)
{
    return NSObject::description(QVariant::fromValue(value));
}
} // namespace

TEST(Description, ContainersOfAnyTypeShowTheirElements)
{
    EXPECT_EQ(description(QList<int>{1, 2}), u"(\n    1,\n    2\n)"_s);
    EXPECT_EQ(description(std::vector<QString>{u"a b"_s}), u"(\n    \"a b\"\n)"_s);
    EXPECT_EQ(description(QSet<QString>{u"one"_s}), u"(\n    one\n)"_s);
    EXPECT_EQ(description(QMap<int, double>{{1, 2.5}}), u"{\n    1 = 2.5;\n}"_s);
    EXPECT_TRUE(description(QMultiMap<int, int>{{1, 2}, {1, 3}}).contains(u"(1, 3)(1, 2)"));
    EXPECT_EQ(description(QList<QList<int>>{{1}}), u"(\n    (\n        1\n    )\n)"_s);
}

TEST(Description, OtherValuesShowTheirTextOrContents)
{
    EXPECT_EQ(description(QUrl(u"http://example.org"_s)), u"http://example.org"_s);
    EXPECT_EQ(description(QChar(u'x')), u"x"_s);
    EXPECT_EQ(description(QSize(1, 2)), u"QSize(1, 2)"_s);
    EXPECT_TRUE(description(QRegularExpression(u"a+"_s)).contains(u"a+"_s));
    EXPECT_TRUE(description(QJsonArray{1, u"a"_s}).contains(u"[1,\"a\"]"_s));
    EXPECT_EQ(description(PlainColour::Green), u"7"_s);
    EXPECT_EQ(description(NamedPlace{4, u"Rome"_s}), u"<NamedPlace x = 4, name = Rome>"_s);
    EXPECT_TRUE(description(WithoutWords()).endsWith(u"WithoutWords>"));
}

TEST(Description, PointersShowWhatTheyLeadTo)
{
    TellingObject object;
    object.text = u"me"_s;
    EXPECT_EQ(description(&object), u"me"_s);
    EXPECT_EQ(description(QPointer<QObject>(&object)), u"me"_s);
    EXPECT_EQ(description(QPointer<QObject>()), u"(null)"_s);
    EXPECT_EQ(description(QSharedPointer<QObject>()), u"(null)"_s);
    EXPECT_EQ(description(static_cast<void *>(nullptr)), u"(null)"_s);
    EXPECT_TRUE(description(static_cast<void *>(&object)).startsWith(u"0x"));
    EXPECT_TRUE(description(static_cast<WithoutWords *>(nullptr)) == u"(null)"_s);
}

TEST(Description, AnObjectWithoutWordsShowsItsClassAndAddress)
{
    QObject object;
    EXPECT_EQ(description(&object),
              QString(u"<QObject: 0x"_s + QString::number(quintptr(&object), 16) + u'>'));
}

TEST(Description, AnInvalidDateSaysSo)
{
    EXPECT_EQ(description(QDateTime()), u"<invalid date>"_s);
}

TEST(Description, OfValuesWithoutEndEnds)
{
    const QString text = NSObject::description(QVariant::fromValue(NextPlace()));
    EXPECT_TRUE(text.startsWith(u"<NextPlace next = <NextPlace next = "_s)) << qPrintable(text);
    EXPECT_TRUE(text.contains(u"..."_s));
}

#include "DescriptionTests.moc"
