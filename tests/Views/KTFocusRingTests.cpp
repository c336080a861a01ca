// One ring around a view while the keyboard focus is inside.

#include <KTUtility/KTFocusRingScrollView>
#include <KTUtility/KTFocusRingView>
#include <KTUtility/NSNib>

#include "support/PictureSupport.h"
#include "support/TestSupport.h"

#include <QApplication>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QSplitter>
#include <QTest>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {
/// A container that counts what is asked for.
template<typename View>
class Counting : public View
{
public:
    using View::View;
    int invalidations = 0;
    QRect lastRect;

protected:
    void setKeyboardFocusRingNeedsDisplayInRect(const QRect &rect) override
    {
        ++invalidations;
        lastRect = rect;
        View::setKeyboardFocusRingNeedsDisplayInRect(rect);
    }
};

QWidget *ringIn(QWidget *parent)
{
    return parent->findChild<QWidget *>(u"KTFocusRing"_s);
}

void activate(QWidget *window)
{
    window->show();
    window->activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(window));
}

QColor highlightOf(const QWidget *widget)
{
    return widget->palette().color(QPalette::Highlight);
}

/// A window with a field beside a container with two fields. The scroll view has them in a widget.
template<typename View>
class KTFocusRingTests : public testing_support::WindowedTest
{
protected:
    KTFocusRingTests()
    {
        window.resize(300, 200);
        outside->setGeometry(10, 10, 100, 24);
        view->setGeometry(10, 50, 200, 100);
        view->setFocusPolicy(Qt::StrongFocus);
        auto *const content = new QWidget(view);
        content->setGeometry(0, 0, 180, 90);
        if (auto *const area = qobject_cast<QAbstractScrollArea *>(view))
            content->setParent(area->viewport());
        first = new QLineEdit(content);
        second = new QLineEdit(content);
        first->setGeometry(10, 10, 100, 24);
        second->setGeometry(10, 50, 100, 24);
        activate(&window);
        outside->setFocus();
    }

    QWidget window;
    QLineEdit *outside = new QLineEdit(&window);
    Counting<View> *view = new Counting<View>(&window);
    QLineEdit *first = nullptr;
    QLineEdit *second = nullptr;
};
using Containers = testing::Types<KTFocusRingView, KTFocusRingScrollView>;
TYPED_TEST_SUITE(KTFocusRingTests, Containers);
} // namespace

TYPED_TEST(KTFocusRingTests, FollowsTheFocus)
{
    EXPECT_FALSE(this->view->shouldDrawFocusRing());
    EXPECT_EQ(ringIn(&this->window), nullptr);
    this->first->setFocus();
    EXPECT_TRUE(this->view->shouldDrawFocusRing());
    EXPECT_EQ(this->view->previousResponder(), this->first);
    ASSERT_NE(ringIn(&this->window), nullptr);
    EXPECT_TRUE(ringIn(&this->window)->isVisible());
    this->outside->setFocus();
    EXPECT_FALSE(this->view->shouldDrawFocusRing());
    EXPECT_EQ(this->view->previousResponder(), nullptr);
    EXPECT_EQ(ringIn(&this->window), nullptr);
}

TYPED_TEST(KTFocusRingTests, IsInvalidatedOnTransitionsOnly)
{
    this->first->setFocus();
    EXPECT_EQ(this->view->invalidations, 1);
    EXPECT_EQ(this->view->lastRect, this->view->rect());
    this->second->setFocus();
    this->first->setFocus();
    this->view->setFocus();
    this->second->setFocus();
    this->view->viewWillDraw();
    EXPECT_EQ(this->view->invalidations, 1);
    EXPECT_EQ(this->view->previousResponder(), this->first);
    this->outside->setFocus();
    EXPECT_EQ(this->view->invalidations, 2);
    this->view->viewWillDraw();
    EXPECT_EQ(this->view->invalidations, 2);
}

TYPED_TEST(KTFocusRingTests, TheViewItselfCounts)
{
    this->view->setFocus();
    EXPECT_TRUE(this->view->shouldDrawFocusRing());
    EXPECT_EQ(this->view->previousResponder(), this->view);
}

TYPED_TEST(KTFocusRingTests, NoFocusNoRing)
{
    this->first->setFocus();
    this->first->clearFocus();
    EXPECT_FALSE(this->view->shouldDrawFocusRing());
    EXPECT_EQ(ringIn(&this->window), nullptr);
}

TYPED_TEST(KTFocusRingTests, AnotherWindowTakesItAway)
{
    this->first->setFocus();
    {
        QWidget other;
        activate(&other);
        EXPECT_FALSE(this->view->shouldDrawFocusRing());
        EXPECT_EQ(ringIn(&this->window), nullptr);
        EXPECT_EQ(this->view->invalidations, 2);
    }
    activate(&this->window);
    EXPECT_TRUE(this->view->shouldDrawFocusRing());
    EXPECT_EQ(this->view->invalidations, 3);
}

TYPED_TEST(KTFocusRingTests, LiesAroundTheView)
{
    this->first->setFocus();
    QWidget *const ring = ringIn(&this->window);
    EXPECT_EQ(ring->geometry(), this->view->geometry().adjusted(-3, -3, 3, 3));
    this->view->setGeometry(40, 60, 120, 80);
    EXPECT_EQ(ring->geometry(), QRect(37, 57, 126, 86));
    this->view->hide();
    EXPECT_TRUE(!ringIn(&this->window) || !ringIn(&this->window)->isVisible());
}

TYPED_TEST(KTFocusRingTests, IsDrawnOutsideOnly)
{
    const QImage before = this->window.grab().toImage();
    this->first->setFocus();
    const QImage after = this->window.grab().toImage();
    const QRect frame = this->view->geometry();
    const QColor ring = after.pixelColor(frame.center().x(), frame.top() - 1);
    EXPECT_COLOR(ring, highlightOf(this->view), 60);
    EXPECT_NE(after.pixelColor(frame.left() - 1, frame.center().y()),
              before.pixelColor(frame.left() - 1, frame.center().y()));
    EXPECT_EQ(after.pixelColor(frame.left() - 4, frame.center().y()),
              before.pixelColor(frame.left() - 4, frame.center().y()));
    EXPECT_EQ(after.pixelColor(frame.right() - 4, frame.bottom() - 4),
              before.pixelColor(frame.right() - 4, frame.bottom() - 4));
    this->outside->setFocus();
    EXPECT_EQ(this->window.grab().toImage().pixelColor(frame.center().x(), frame.top() - 1),
              before.pixelColor(frame.center().x(), frame.top() - 1));
}

TYPED_TEST(KTFocusRingTests, LetsTheMouseThrough)
{
    this->first->setFocus();
    QWidget *const ring = ringIn(&this->window);
    EXPECT_TRUE(ring->testAttribute(Qt::WA_TransparentForMouseEvents));
    EXPECT_FALSE(this->window.childAt(this->view->geometry().topLeft() - QPoint(2, 2)) == ring);
}

TYPED_TEST(KTFocusRingTests, FocusedControlsMayBeDestroyed)
{
    this->first->setFocus();
    delete this->first;
    EXPECT_FALSE(this->view->shouldDrawFocusRing());
    EXPECT_EQ(ringIn(&this->window), nullptr);
    this->second->setFocus();
    EXPECT_EQ(this->view->previousResponder(), this->second);
    delete this->view;
    EXPECT_EQ(ringIn(&this->window), nullptr);
}

TYPED_TEST(KTFocusRingTests, FollowsToAnotherParent)
{
    this->first->setFocus();
    auto *const box = new QWidget(&this->window);
    box->setGeometry(0, 0, 300, 200);
    box->show();
    this->view->setParent(box);
    this->view->show();
    this->first->setFocus();
    ASSERT_NE(ringIn(&this->window), nullptr);
    box->move(20, 0);
    EXPECT_EQ(ringIn(&this->window)->geometry(), QRect(27, 47, 206, 106));
    this->view->setParent(nullptr);
    EXPECT_EQ(ringIn(&this->window), nullptr);
    delete this->view;
}

TYPED_TEST(KTFocusRingTests, IsNoPaneOfASplitter)
{
    QSplitter splitter;
    auto *const pane = new Counting<TypeParam>;
    auto *const field = new QLineEdit(pane);
    splitter.addWidget(pane);
    splitter.addWidget(new QLineEdit);
    splitter.resize(300, 100);
    activate(&splitter);
    field->setFocus();
    EXPECT_TRUE(pane->shouldDrawFocusRing());
    ASSERT_NE(ringIn(pane), nullptr);
    EXPECT_EQ(splitter.count(), 2);
    EXPECT_EQ(ringIn(pane)->geometry(), pane->rect());
}

TYPED_TEST(KTFocusRingTests, ScrollsWithTheView)
{
    QScrollArea area;
    auto *const content = new QWidget;
    content->resize(280, 1000);
    auto *const inner = new Counting<TypeParam>(content);
    inner->setGeometry(20, 20, 100, 60);
    auto *const field = new QLineEdit(inner);
    area.setWidget(content);
    area.resize(300, 200);
    activate(&area);
    field->setFocus();
    QWidget *const ring = ringIn(area.viewport());
    ASSERT_NE(ring, nullptr);
    EXPECT_EQ(ring->parentWidget(), area.viewport());
    content->move(0, -10);
    EXPECT_EQ(ring->geometry(), QRect(17, 7, 106, 66));
}

TYPED_TEST(KTFocusRingTests, AWindowShowsItInside)
{
    Counting<TypeParam> alone;
    alone.resize(100, 80);
    auto *const field = new QLineEdit(&alone);
    activate(&alone);
    field->setFocus();
    ASSERT_NE(ringIn(&alone), nullptr);
    EXPECT_EQ(ringIn(&alone)->geometry(), alone.rect());
}

namespace {
class KTFocusRingExampleTests : public testing_support::WindowedTest
{
};
} // namespace

TEST_F(KTFocusRingExampleTests, ATextViewInAScrollView)
{
    QWidget window;
    auto *const notes = new KTFocusRingScrollView(&window);
    auto *const text = new QPlainTextEdit;
    notes->setWidget(text);
    notes->setWidgetResizable(true);
    notes->setGeometry(10, 10, 200, 100);
    activate(&window);
    text->setFocus();
    EXPECT_TRUE(notes->shouldDrawFocusRing());
    EXPECT_NE(ringIn(&window), nullptr);
}

TEST_F(KTFocusRingExampleTests, AFormInALayout)
{
    QWidget window;
    auto *const address = new KTFocusRingView;
    auto *const outer = new QVBoxLayout(&window);
    outer->addWidget(address);
    auto *const layout = new QVBoxLayout(address);
    auto *const street = new QLineEdit;
    layout->addWidget(street);
    activate(&window);
    street->setFocus();
    EXPECT_TRUE(address->shouldDrawFocusRing());
    EXPECT_EQ(outer->count(), 1);
}

TEST_F(KTFocusRingExampleTests, InterfaceFilesMakeThem)
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(u"Form.ui"_s);
    testing_support::writeFile(path, R"(<ui version="4.0"><class>Form</class>
<widget class="QWidget" name="form">
 <widget class="KTFocusRingScrollView" name="scroll">
  <property name="widgetResizable"><bool>true</bool></property>
  <widget class="QWidget" name="contents"><widget class="QLineEdit" name="field"/></widget>
 </widget>
 <widget class="KTFocusRingView" name="plain"/>
</widget></ui>)");
    const auto form = NSNib::instantiate(path, nullptr);
    ASSERT_NE(form, nullptr);
    auto *const scroll = form->findChild<KTFocusRingScrollView *>(u"scroll"_s);
    ASSERT_NE(scroll, nullptr);
    ASSERT_NE(scroll->widget(), nullptr);
    EXPECT_EQ(scroll->widget()->objectName(), u"contents"_s);
    auto *const plain = form->findChild<KTFocusRingView *>(u"plain"_s);
    ASSERT_NE(plain, nullptr);
    EXPECT_FALSE(plain->isWindow() || scroll->isWindow());
    activate(form.get());
    form->findChild<QLineEdit *>()->setFocus();
    EXPECT_TRUE(scroll->shouldDrawFocusRing());
}
