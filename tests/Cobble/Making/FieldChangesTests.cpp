#include "Making/FieldChanges.h"

#include "support/TestSupport.h"

#include "Appearance/WindowLanguage.h"

#include <KTUtility/NSLocale>

#include <functional>

using namespace Qt::StringLiterals;

namespace {
Library plainThings()
{
    Library library;
    library.name = u"Things"_s;
    for (const QString &title : {u"Name"_s, u"Size"_s, u"Note"_s}) {
        LibraryField field;
        field.header = title;
        library.fields.append(field);
    }
    return library;
}

QStringList sentencesOf(const FieldPlan &plan, const std::optional<FieldPreview> &preview)
{
    QStringList texts;
    for (const FieldChanges::Change &change : FieldChanges::of(plan, preview)) {
        texts += change.text;
        for (const FieldChanges::Value &value : change.values)
            texts += value.text + u" | " + value.reason;
    }
    return texts;
}

using PlannedChanges = std::function<void(FieldPlan &)>;

class FieldChangesTests : public testing_support::WindowedTest
{
protected:
    FieldChangesTests()
    {
        NSLocale::setCurrentLocale(NSLocale(u"en_US"_s));
        language.emplace();
    }
    ~FieldChangesTests() override { NSLocale::resetCurrentLocale(); }

    std::optional<WindowLanguage> language;
};
} // namespace

TEST_F(FieldChangesTests, SayWhatIsPlanned)
{
    const struct
    {
        PlannedChanges changes;
        QStringList texts;
    } rows[] = {
        {[](FieldPlan &) {}, {}},
        {[](FieldPlan &plan) { plan.rename(0, u"Who\n\u202e"_s); },
         {u"“Name” gets the name “Who…”."_s}},
        {[](FieldPlan &plan) { plan.move(0, 1); }, {u"The fields get another order."_s}},
        {[](FieldPlan &plan) { plan.add(FieldPlan::newField(u"Date"_s, FieldType::Date)); },
         {u"“Date” is new."_s}},
        {[](FieldPlan &plan) {
             plan.setOptions(1, {{u"decimalPlaces"_s, 1}});
         },
         {u"“Size” is shown in another way."_s}},
        {[](FieldPlan &plan) { plan.setType(1, FieldType::Number, {}); },
         {u"“Size” gets the type Number."_s}},
        {[](FieldPlan &plan) { plan.remove(2); }, {u"“Note” is removed."_s}},
    };
    for (const auto &row : rows) {
        FieldPlan plan(plainThings());
        row.changes(plan);
        EXPECT_EQ(sentencesOf(plan, std::nullopt), row.texts);
    }
}

TEST_F(FieldChangesTests, SayWhatBecomesOfValuesOnceThatIsKnown)
{
    FieldPlan plan(plainThings());
    plan.setType(0, FieldType::Date, {});
    plan.setType(1, FieldType::Number, {});
    plan.remove(2);
    FieldPreview preview;
    preview.converted.insert(0, {.readCount = 3, .unreadCount = 0, .unread = {}});
    preview.converted.insert(
        1,
        {.readCount = 1, .unreadCount = 3, .unread = {{7, u"ab\u202ec"_s, u"it is no number"_s}}});
    preview.removed.insert(2, 1);
    EXPECT_EQ(
        sentencesOf(plan, preview),
        QStringList({u"“Name” gets the type Date. All values can be read."_s,
                     u"“Size” gets the type Number. 3 values cannot be read and will be emptied."_s,
                     u"Record 7: “ab\\u202ec” | It is no number."_s, u"and 2 more | "_s,
                     u"“Note” is removed. 1 record has a value there."_s}));
    preview.removed.insert(2, 0);
    EXPECT_EQ(sentencesOf(plan, preview).last(),
              u"“Note” is removed. No record has a value there."_s);
}
