#include <KTUtility/MemberProperty>

#include <KTUtility/NSException>

#include "support/Reading.h"
#include "support/TestSupport.h"

using namespace KTPrivate;

namespace {
namespace inner {
struct Plain
{
    int get() const { return 1; }
    int value = 0;
};
} // namespace inner
} // namespace

// Known when it is compiled.
static_assert(memberName<&Reading::level>() == "level");
static_assert(memberName<&Reading::isValid>() == "isValid");
static_assert(memberName<&Reading::setAny>() == "setAny");
static_assert(memberName<&inner::Plain::get>() == "get");
static_assert(memberName<&inner::Plain::value>() == "value");

TEST(MemberProperty, IsFoundByTheNameOfItsGetter)
{
    const QMetaObject &type = Reading::staticMetaObject;
    const auto nameOf = [&](const char *getter, QMetaType value) {
        return QByteArray(propertyOfGetter(&type, getter, value).name());
    };
    EXPECT_EQ(nameOf("level", QMetaType::fromType<int>()), "level");
    EXPECT_EQ(nameOf("isValid", QMetaType::fromType<bool>()), "valid");
    EXPECT_EQ(nameOf("getTitle", QMetaType::fromType<QString>()), "title");
    // Of another type, without setter, or none.
    EXPECT_THROW(nameOf("level", QMetaType::fromType<double>()), NSException);
    EXPECT_THROW(nameOf("fixed", QMetaType::fromType<int>()), NSException);
    EXPECT_THROW(nameOf("is", QMetaType::fromType<int>()), NSException);
    EXPECT_THROW(nameOf("nothing", QMetaType::fromType<int>()), NSException);
}
