// Interface files: registered classes, outlets, delegates, and waking.

#include <KTUtility/NSClassRegistry>
#include <KTUtility/NSNib>
#include <KTUtility/NSWindowController>

#include "support/TestSupport.h"

#include <QLabel>
#include <QPushButton>

using namespace Qt::StringLiterals;

namespace {
QStringList &awakened()
{
    static QStringList names;
    return names;
}

/// A view that only this test knows.
class NibView : public QWidget
{
    Q_OBJECT

public:
    Q_INVOKABLE void setDelegate(QObject *object) { delegate = object; }
    Q_INVOKABLE void awakeFromNib() { awakened() += objectName(); }

    QObject *delegate = nullptr;
};
KT_REGISTER_CLASS(NibView)

class NibOwner : public QObject
{
    Q_OBJECT
    Q_PROPERTY(NibView *panel MEMBER panel)
    Q_PROPERTY(QLabel *label MEMBER label)
    Q_PROPERTY(QPushButton *missing MEMBER missing)
    Q_PROPERTY(QPushButton *wrongClass MEMBER wrongClass)
    Q_PROPERTY(QString text MEMBER text)

public:
    Q_INVOKABLE void awakeFromNib() { awakened() += u"owner"_s; }

    NibView *panel = nullptr;
    QLabel *label = nullptr;
    QPushButton *missing = nullptr;
    QPushButton *wrongClass = nullptr;
    QString text;
};

constexpr char Form[] = R"(<?xml version="1.0" encoding="UTF-8"?>
<ui version="4.0"><class>Form</class>
 <widget class="QWidget" name="form">
  <widget class="NibView" name="panel">
   <property name="delegateOutlet" stdset="0"><string>owner</string></property>
   <widget class="QLabel" name="label"><property name="text"><string>Hello</string></property></widget>
   <widget class="QLabel" name="wrongClass"/>
   <widget class="NibView" name="inner"/>
  </widget>
 </widget>
</ui>)";

class NSNibTests : public testing_support::WindowedTest
{
protected:
    NSNibTests() { awakened().clear(); }
    QString fileOf(const QByteArray &contents)
    {
        const QString path = folder.filePath(u"Form.ui"_s);
        testing_support::writeFile(path, contents);
        return path;
    }

    QTemporaryDir folder;
    QString error;
};
} // namespace

TEST_F(NSNibTests, MakesRegisteredClassesAndConnectsOutlets)
{
    NibOwner owner;
    const auto root = NSNib::instantiate(fileOf(Form), &owner, &error);
    ASSERT_NE(root, nullptr);
    EXPECT_EQ(error, QString());
    ASSERT_NE(owner.panel, nullptr);
    EXPECT_EQ(owner.panel->parentWidget(), root.get());
    ASSERT_NE(owner.label, nullptr);
    EXPECT_EQ(owner.label->text(), u"Hello"_s);
    EXPECT_EQ(owner.missing, nullptr);
    EXPECT_EQ(owner.wrongClass, nullptr);
}

TEST_F(NSNibTests, DelegatesAreTheOwnerWhereTheFormSaysSo)
{
    NibOwner owner;
    const auto root = NSNib::instantiate(fileOf(Form), &owner);
    EXPECT_EQ(owner.panel->delegate, &owner);
    EXPECT_EQ(root->findChild<NibView *>(u"inner"_s)->delegate, nullptr);
}

TEST_F(NSNibTests, WakesTheInnermostFirstAndTheOwnerLast)
{
    NibOwner owner;
    const auto root = NSNib::instantiate(fileOf(Form), &owner);
    EXPECT_EQ(awakened(), QStringList({u"inner"_s, u"panel"_s, u"owner"_s}));
}

TEST_F(NSNibTests, WorksWithoutOwner)
{
    const auto root = NSNib::instantiate(fileOf(Form), nullptr);
    ASSERT_NE(root, nullptr);
    EXPECT_EQ(root->findChild<NibView *>(u"panel"_s)->delegate, nullptr);
    EXPECT_EQ(awakened().size(), 2);
}

TEST_F(NSNibTests, BrokenFilesAreNull)
{
    NibOwner owner;
    EXPECT_EQ(NSNib::instantiate(QString(), &owner, &error), nullptr);
    EXPECT_EQ(error, u"there is no such file"_s);
    EXPECT_EQ(NSNib::instantiate(folder.filePath(u"none.ui"_s), &owner, &error), nullptr);
    EXPECT_FALSE(error.isEmpty());
    for (const QByteArray &contents :
         {QByteArray(), QByteArray("no form"), QByteArray(Form).left(300),
          QByteArray("<ui version=\"4.0\"></ui>"), QByteArray("\x00\xff\x01", 3)}) {
        error.clear();
        testing_support::standardErrorOf(
            [&] { EXPECT_EQ(NSNib::instantiate(fileOf(contents), &owner, &error), nullptr); });
        EXPECT_FALSE(error.isEmpty());
    }
    EXPECT_EQ(owner.panel, nullptr);
    EXPECT_TRUE(awakened().isEmpty());
}

TEST_F(NSNibTests, WindowControllersLoadRegisteredClasses)
{
    NSWindowController controller(fileOf(Form));
    EXPECT_NE(controller.outlet<NibView>(u"panel"_s), nullptr);
    EXPECT_EQ(awakened().size(), 2);
}

#include "NSNibTests.moc"
