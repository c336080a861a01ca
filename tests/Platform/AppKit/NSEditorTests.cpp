#include <KTUtility/NSEditor>

#include <KTUtility/NSArrayController>

#include "support/TestSupport.h"

#include <QObject>
#include <QStringList>

#include <functional>
#include <memory>

using namespace Qt::StringLiterals;

namespace {
/// Something typed, which can be stored or not.
class TypedText : public QObject, public NSEditor
{
public:
    TypedText(const QString &text, QStringList *asked) : _text(text), _asked(asked) {}

    bool commitEditing() override
    {
        *_asked += u"commit "_s + _text;
        if (isAsked)
            isAsked();
        return isValid;
    }
    void discardEditing() override { *_asked += u"discard "_s + _text; }

    bool isValid = true;
    std::function<void()> isAsked;

private:
    QString _text;
    QStringList *_asked;
};

class NSEditorTests : public testing::Test
{
protected:
    NSEditorTests()
    {
        controller.setContent({1, 2, 3});
        controller.setSelectionIndex(0);
        controller.objectDidBeginEditing(&first);
        controller.objectDidBeginEditing(second.get());
        controller.objectDidBeginEditing(&first);
    }

    QStringList asked;
    TypedText first{u"a"_s, &asked};
    std::unique_ptr<TypedText> second = std::make_unique<TypedText>(u"b"_s, &asked);
    NSArrayController controller;
};
} // namespace

TEST_F(NSEditorTests, EditorsAreAskedInTheOrderInWhichTheyBegan)
{
    EXPECT_TRUE(controller.isEditing());
    EXPECT_TRUE(controller.commitEditing());
    EXPECT_EQ(asked, QStringList({u"commit a"_s, u"commit b"_s}));
    asked.clear();
    controller.discardEditing();
    EXPECT_EQ(asked, QStringList({u"discard a"_s, u"discard b"_s}));
}

TEST_F(NSEditorTests, TheFirstThatCannotStoreEndsIt)
{
    first.isValid = false;
    EXPECT_FALSE(controller.commitEditing());
    EXPECT_EQ(asked, QStringList(u"commit a"_s));
    controller.objectDidEndEditing(&first);
    EXPECT_TRUE(controller.commitEditing());
}

TEST_F(NSEditorTests, EditorsMayBeDestroyed)
{
    QObject noEditor;
    controller.objectDidBeginEditing(&noEditor);
    controller.objectDidBeginEditing(nullptr);
    first.isAsked = [this] { second.reset(); };
    EXPECT_TRUE(controller.commitEditing());
    EXPECT_EQ(asked, QStringList(u"commit a"_s));
    EXPECT_TRUE(controller.isEditing());
    controller.objectDidEndEditing(&first);
    EXPECT_FALSE(controller.isEditing());
}

TEST_F(NSEditorTests, OthersAreSelectedOnlyWhenAllIsStoredIfItIsTo)
{
    EXPECT_TRUE(controller.setSelectionIndex(1));
    EXPECT_TRUE(asked.isEmpty());
    controller.setCommitsBeforeSelecting(true);
    EXPECT_TRUE(controller.commitsBeforeSelecting());
    EXPECT_TRUE(controller.setSelectionIndex(2));
    EXPECT_EQ(controller.selectionIndex(), 2);
    second->isValid = false;
    EXPECT_FALSE(controller.setSelectionIndex(0));
    EXPECT_EQ(controller.selectionIndex(), 2);
    controller.selectPrevious();
    EXPECT_EQ(controller.selectionIndex(), 2);
    second.reset();
    controller.selectPrevious();
    EXPECT_EQ(controller.selectionIndex(), 1);
}
