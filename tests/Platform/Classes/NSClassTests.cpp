#include <KTUtility/NSClass>
#include <KTUtility/NSClassRegistry>

#include "support/TestSupport.h"

#include <QtGlobal>

using namespace Qt::StringLiterals;
using namespace testing_support;

namespace {
class Shape
{
public:
    virtual ~Shape() = default;
};
class Colour
{
public:
    virtual ~Colour() = default;
};
} // namespace
Q_DECLARE_INTERFACE(Shape, "org.cobble.tests.Shape")
Q_DECLARE_INTERFACE(Colour, "org.cobble.tests.Colour")

namespace {
class Square : public QObject, public Shape, public Colour
{
};

class Sized : public QObject
{
public:
    explicit Sized(int) {}
};

class Loud : public QObject
{
public:
    Loud() { throw 5; }
};

int here = 0;

const void *thisModule()
{
    return NSClassRegistry::moduleOfAddress(&here);
}
} // namespace

KT_REGISTER_CLASS(Square, Shape, Colour)
KT_REGISTER_CLASS(Sized)
KT_REGISTER_CLASS(Loud)

TEST(NSClass, IsFoundByNameInItsModule)
{
    const NSClass *const square = NSClassRegistry::classNamed(u"Square"_s, thisModule());
    ASSERT_NE(square, nullptr);
    EXPECT_EQ(square->name(), u"Square"_s);
    EXPECT_EQ(NSClassRegistry::classNamed(u"square"_s, thisModule()), nullptr);
    EXPECT_EQ(NSClassRegistry::classNamed(u"Square"_s, nullptr), nullptr);
    // The text lies in the library of Qt. Objects of a library may lie in the program that uses them.
    const void *const other = NSClassRegistry::moduleOfAddress(qVersion());
    EXPECT_NE(other, nullptr);
    EXPECT_NE(other, thisModule());
    EXPECT_EQ(NSClassRegistry::classNamed(u"Square"_s, other), nullptr);
    for (const QString &name : hostileTexts())
        EXPECT_EQ(NSClassRegistry::classNamed(name, thisModule()), nullptr);
}

TEST(NSClass, AddressesOutsideOfModulesHaveNone)
{
    EXPECT_NE(thisModule(), nullptr);
    EXPECT_EQ(NSClassRegistry::moduleOfAddress(nullptr), nullptr);
    EXPECT_EQ(NSClassRegistry::moduleOfAddress(std::make_unique<int>(5).get()), nullptr);
}

TEST(NSClass, ConformsToWhatItWasRegisteredWith)
{
    const NSClass *const square = NSClassRegistry::classNamed(u"Square"_s, thisModule());
    ASSERT_NE(square, nullptr);
    EXPECT_TRUE(square->conformsToProtocol(NSProtocol::of<Shape>()));
    EXPECT_FALSE(square->conformsToProtocol(NSProtocol(u"another"_s)));
    EXPECT_FALSE(square->conformsToProtocol(NSProtocol(u""_s)));
    EXPECT_FALSE(square->conformsToProtocol(NSProtocol()));
    EXPECT_TRUE(square->conformsToProtocol(NSProtocol::of<Colour>()));
}

TEST(NSClass, MakesInstances)
{
    const NSClass *const square = NSClassRegistry::classNamed(u"Square"_s, thisModule());
    ASSERT_NE(square, nullptr);
    const std::unique_ptr<QObject> first = square->newInstance();
    const std::unique_ptr<QObject> second = square->newInstance();
    EXPECT_NE(dynamic_cast<Square *>(first.get()), nullptr);
    EXPECT_NE(first, second);

    const NSClass *const sized = NSClassRegistry::classNamed(u"Sized"_s, thisModule());
    ASSERT_NE(sized, nullptr);
    EXPECT_EQ(sized->newInstance(), nullptr);
    const NSClass *const loud = NSClassRegistry::classNamed(u"Loud"_s, thisModule());
    ASSERT_NE(loud, nullptr);
    EXPECT_THROW(loud->newInstance(), int);
}

TEST(NSClass, IsFoundAsLongAsItIsRegisteredAndTheFirstCounts)
{
    const QString name = u"Passing"_s;
    using Registration = NSClassRegistration<NSClassOf<NSClass, Square>>;
    static std::optional<Registration> first;
    static std::optional<Registration> second;
    first.emplace(name);
    const NSClass *const firstClass = NSClassRegistry::classNamed(name, thisModule());
    second.emplace(name);
    ASSERT_NE(firstClass, nullptr);
    EXPECT_EQ(NSClassRegistry::classNamed(name, thisModule()), firstClass);
    first.reset();
    EXPECT_NE(NSClassRegistry::classNamed(name, thisModule()), nullptr);
    second.reset();
    EXPECT_EQ(NSClassRegistry::classNamed(name, thisModule()), nullptr);
}
