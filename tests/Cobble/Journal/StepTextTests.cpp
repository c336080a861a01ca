#include "Journal/StepText.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {
struct Named
{
    QString kind;
    QString text;
};
} // namespace

TEST(StepText, NamesStepsOfAllKinds)
{
    const QVariantMap parameters = {{StepParameters::Field, u"Email"_s},
                                    {StepParameters::Library, u"People"_s},
                                    {StepParameters::Count, 2}};
    for (const Named &each : QList<Named>{{StepKinds::Edit, u"Change of “Email”"_s},
                                          {StepKinds::Paste, u"Paste"_s},
                                          {StepKinds::Fill, u"Fill Down"_s},
                                          {StepKinds::Replace, u"Replace"_s},
                                          {StepKinds::Import, u"Import of “People”"_s},
                                          {StepKinds::NewLibrary, u"New Library “People”"_s},
                                          {StepKinds::RenameLibrary, u"Rename Library “People”"_s},
                                          {StepKinds::RemoveLibrary, u"Remove Library “People”"_s},
                                          {StepKinds::AddField, u"New Field “Email”"_s},
                                          {StepKinds::RenameField, u"Rename Field “Email”"_s},
                                          {StepKinds::MoveField, u"Move Field “Email”"_s},
                                          {StepKinds::ChangeType, u"Change Type of “Email”"_s},
                                          {StepKinds::ChangeOptions, u"Change Format of “Email”"_s},
                                          {StepKinds::RemoveField, u"Remove Field “Email”"_s},
                                          {StepKinds::ChangeFields, u"Change Fields of “People”"_s},
                                          {u"of a newer version"_s, u"Change"_s}})
        EXPECT_EQ(StepText::of({each.kind, parameters}), each.text);
    EXPECT_EQ(StepText::of({StepKinds::Edit, {}}), u"Change"_s);
}

TEST(StepText, LeavesNamesOfStrangersShortAndHarmless)
{
    const QString text = StepText::of(
        {StepKinds::Import, {{StepParameters::Library, QString(u"a\n" + QString(1000, u'x'))}}});
    EXPECT_LT(text.size(), 60);
    EXPECT_FALSE(text.contains(u'\n'));
    EXPECT_TRUE(StepText::of({StepKinds::Delete, {{StepParameters::Count, -5}}}).contains(u'1'));
    EXPECT_FALSE(StepText::of({StepKinds::Delete, {{StepParameters::Count, u"x"_s}}}).isEmpty());
}
