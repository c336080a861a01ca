#include "PhoneLayouts.h"

#include <QStringView>

namespace {
struct Layout
{
    QStringView country;
    int index;
};

/// As in docs/phone-number-formats.md.
constexpr Layout Layouts[] = {
    {u"US", 0},  {u"CA", 0},  {u"GB", 1},  {u"DE", 2},  {u"FR", 3},  {u"JP", 4},  {u"AU", 5},
    {u"ES", 6},  {u"IT", 7},  {u"NL", 8},  {u"BE", 9},  {u"CH", 10}, {u"LI", 10}, {u"AT", 11},
    {u"SE", 12}, {u"NO", 13}, {u"DK", 14}, {u"FI", 15}, {u"IE", 16}, {u"PL", 17}, {u"PT", 18},
    {u"CN", 19}, {u"KR", 20}, {u"IN", 21}, {u"BR", 22}, {u"MX", 23}, {u"NZ", 24}, {u"RU", 25},
    {u"KZ", 25}, {u"IL", 26}, {u"ZA", 27},
};
} // namespace

int PhoneLayouts::indexForCountry(const QString &countryCode)
{
    for (const Layout &layout : Layouts) {
        if (layout.country == countryCode)
            return layout.index;
    }
    return -1;
}
