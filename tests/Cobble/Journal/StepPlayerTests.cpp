#include "Journal/StepPlayer.h"

#include "StoreSupport.h"

using namespace Qt::StringLiterals;

namespace {
const QString TypeConflict = u"a field has another type since, so that it cannot be undone"_s;

class StepPlayerTests : public testing_support::StoreTest
{
protected:
    /// The ages become texts.
    qint64 changeType(const QString &kind = StepKinds::ChangeType)
    {
        const auto text = [](const QVariant &value) -> Outcome<QVariant> {
            return QVariant(NSObject::description(value));
        };
        return make(
            [&](StepRecorder &step) -> Outcome<> {
                const auto changed = step.changeType(people, 1, FieldType::Text, {}, text);
                if (!changed)
                    return changed.failure();
                people = *changed;
                return {};
            },
            kind);
    }
    qint64 insert(const QVariantList &values)
    {
        return make([=, this](StepRecorder &step) -> Outcome<> {
            const auto inserted = step.insert(people, values);
            return inserted ? Outcome<>() : inserted.failure();
        });
    }
    qint64 remove(qint64 id)
    {
        return make([=, this](StepRecorder &step) { return step.remove(people, id); });
    }
    qint64 setAge(qint64 id, const QVariant &age)
    {
        return make([=, this](StepRecorder &step) { return step.update(people, id, 1, age); });
    }
};
} // namespace

TEST_F(StepPlayerTests, WhatWasDoneBeforeAChangeOfTypeIsUndoneAfterThatOnly)
{
    const qint64 edit = setAge(3, 5);
    const qint64 deletion = remove(1);
    const qint64 type = changeType();
    const QString after = content();
    EXPECT_EQ(undo(deletion), TypeConflict);
    EXPECT_EQ(undo(edit), TypeConflict);
    EXPECT_TRUE(ChangeJournal(*store).undo(edit).failure().isFinal);
    EXPECT_EQ(content(), after);
    EXPECT_EQ(undoEach({type, edit, deletion}), QString());
    EXPECT_EQ(content(), everything);
}

TEST_F(StepPlayerTests, WhatWasDoneAfterAChangeOfTypeIsRedoneAfterThatOnly)
{
    const qint64 type = changeType();
    const qint64 edit = setAge(2, u"9"_s);
    const QString after = content();
    EXPECT_EQ(undoEach({edit, type}), QString());
    EXPECT_EQ(content(), everything);
    EXPECT_EQ(redo(edit), u"a field has another type since, so that it cannot be redone"_s);
    EXPECT_EQ(content(), everything);
    EXPECT_EQ(redoEach({type, edit}), QString());
    EXPECT_EQ(content(), after);
}

TEST_F(StepPlayerTests, AChangeOfTypeIsNoMatterForWhatHasNoValue)
{
    const qint64 deletion = remove(2);
    const qint64 rename = setName(1, u"Eve"_s);
    changeType();
    EXPECT_EQ(undoEach({deletion, rename}), QString());
    EXPECT_EQ(content(), everything);
}

TEST_F(StepPlayerTests, WhatIsDoneAfterAChangeOfTypeIsUndone)
{
    changeType();
    EXPECT_EQ(undoEach({remove(1)}), QString());
    EXPECT_EQ(undoEach({setAge(3, u"6"_s)}), QString());
    EXPECT_EQ(content(), everything);
}

TEST_F(StepPlayerTests, WhatAFieldHadThatIsRemovedComesBackWithIt)
{
    const qint64 deletion = remove(1);
    const qint64 removal = make(
        [this](StepRecorder &step) -> Outcome<> {
            const auto changed = step.removeField(people, 1);
            return changed ? Outcome<>() : changed.failure();
        },
        StepKinds::RemoveField);
    EXPECT_EQ(undoEach({deletion, removal}), QString());
    EXPECT_EQ(content(), everything);
}

TEST_F(StepPlayerTests, WhatAChangeOfTypeHasMadeComesBackWithTheRecord)
{
    const qint64 insertion = insert({u"Dan"_s, 7, u""_s});
    const qint64 type = changeType();
    const qint64 edit = setAge(4, u"8"_s);
    const QString after = content();
    for (int round = 0; round < 2; ++round) {
        EXPECT_EQ(undoEach({edit, type, insertion}), QString());
        EXPECT_EQ(content(), everything);
        EXPECT_EQ(redoEach({insertion, type, edit}), QString());
        EXPECT_EQ(content(), after);
    }
    EXPECT_EQ(undoEach({edit, type}), QString());
    EXPECT_EQ(redoEach({type, edit}), QString());
    EXPECT_EQ(content(), after);
}

TEST_F(StepPlayerTests, ARecordStaysThatHasValuesOfALaterField)
{
    const qint64 insertion = insert({u"Dan"_s, 7, u""_s});
    const qint64 field = change([this](StepRecorder &step) {
        return step.addField(people, testing_support::fieldOf(u"Notes"_s));
    });
    const qint64 note =
        make([this](StepRecorder &step) { return step.update(people, 4, 3, u"precious"_s); });
    const QString after = content();
    EXPECT_EQ(undo(insertion), u"it was changed since, so that it cannot be undone"_s);
    EXPECT_EQ(content(), after);
    EXPECT_EQ(undo(note), QString());
    EXPECT_EQ(undo(insertion), QString());
    EXPECT_EQ(redoEach({insertion, note}), QString());
    EXPECT_EQ(content(), after);
    EXPECT_EQ(undoEach({note, field, insertion}), QString());
    EXPECT_EQ(content(), everything);
}

TEST_F(StepPlayerTests, AChangeOfTypeAmongOtherChangesCountsAsOne)
{
    const qint64 edit = setAge(3, 5);
    const qint64 fields = changeType(StepKinds::ChangeFields);
    const QString after = content();
    EXPECT_EQ(undo(edit), TypeConflict);
    EXPECT_EQ(content(), after);
    EXPECT_EQ(undoEach({fields, edit}), QString());
    EXPECT_EQ(content(), everything);
}
