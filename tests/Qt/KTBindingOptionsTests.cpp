// What editors and columns show where there is no single value.

#include <KTUtility/KTBindingOptions>

#include <KTUtility/NSSelectionMarker>

#include "support/TestSupport.h"

using namespace Qt::StringLiterals;

TEST(KTBindingOptions, PlaceholdersAreBuiltInUnlessGiven)
{
    const KTBindingOptions given{.nullPlaceholder = u"a"_s,
                                 .multiplePlaceholder = u"b"_s,
                                 .noSelectionPlaceholder = u"c"_s,
                                 .notApplicablePlaceholder = u""_s};
    const struct
    {
        QVariant value;
        QString builtIn;
        QString given;
        bool isEditable;
    } table[] = {
        {{}, {}, u"a"_s, true},
        {QString(), {}, u"a"_s, true},
        {NSMultipleValuesMarker(), u"Multiple values"_s, u"b"_s, true},
        {NSNoSelectionMarker(), u"Nothing is selected"_s, u"c"_s, false},
        {NSNotApplicableMarker(), u"Not applicable"_s, u""_s, false},
        {u"text"_s, {}, {}, true},
        {0, {}, {}, true},
    };
    for (const auto &[value, builtIn, own, isEditable] : table) {
        EXPECT_EQ(KTBindingOptions().placeholderFor(value), builtIn);
        EXPECT_EQ(given.placeholderFor(value), own);
        EXPECT_EQ(KTBindingOptions::isEditable(value), isEditable);
    }
}
