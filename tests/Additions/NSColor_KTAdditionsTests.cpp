#include <KTUtility/NSColor_KTAdditions>

#include "support/TestSupport.h"

using namespace Qt::StringLiterals;

TEST(NSColor_KTAdditions, TextsAreRedGreenBlueAndAlpha)
{
    EXPECT_EQ(KTAdditions::ktColorWithString(u"1 0.5 0 1"_s), QColor::fromRgbF(1, 0.5F, 0));
    EXPECT_EQ(KTAdditions::ktStringRepresentation(QColor(Qt::red)), u"1 0 0 1"_s);
}

TEST(NSColor_KTAdditions, TextsSurviveTheWayThroughAColor)
{
    for (const QString &text : {u"0.5 0.5 0.5 1"_s, u"0.1 0.2 0.3 0.4"_s, u"0 1 0.75 0"_s,
                                u"0.33333 0.66667 0.125 0.9"_s}) {
        EXPECT_EQ(KTAdditions::ktStringRepresentation(KTAdditions::ktColorWithString(text)), text);
    }
    for (int level = 0; level <= 65535; level += 7) {
        const QRgba64 components =
            QRgba64::fromRgba64(quint16(level), 0, quint16(65535 - level), 1);
        const QColor color(components);
        EXPECT_EQ(KTAdditions::ktColorWithString(KTAdditions::ktStringRepresentation(color)),
                  color);
    }
    for (int thousandths = 0; thousandths <= 1000; ++thousandths) {
        const QString text = QString::number(thousandths / 1000.0) + u" 0 0 1";
        EXPECT_EQ(KTAdditions::ktStringRepresentation(KTAdditions::ktColorWithString(text)), text);
    }
}
