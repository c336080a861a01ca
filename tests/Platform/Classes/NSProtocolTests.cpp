#include <KTUtility/NSProtocol>

#include "support/TestSupport.h"

using namespace Qt::StringLiterals;

namespace {
class Shape
{
public:
    virtual ~Shape() = default;
};
} // namespace
Q_DECLARE_INTERFACE(Shape, "org.cobble.tests.Shape")

TEST(NSProtocol, IsTheNameOfAnInterface)
{
    EXPECT_EQ(NSProtocol::of<Shape>().description(), u"org.cobble.tests.Shape"_s);
    EXPECT_EQ(NSProtocol::of<Shape>(), NSProtocol(u"org.cobble.tests.Shape"_s));
    EXPECT_FALSE(NSProtocol::of<Shape>().isNil());
    EXPECT_TRUE(NSProtocol().isNil());
    EXPECT_TRUE(NSProtocol().description().isNull());
}
