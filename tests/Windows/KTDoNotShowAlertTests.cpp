#include <KTUtility/KTDoNotShowAlert>

#include <KTUtility/NSException>
#include <KTUtility/NSUserDefaults>

#include "support/TestSupport.h"

#include <QApplication>
#include <QCheckBox>
#include <QLabel>
#include <QMessageBox>
#include <QPointer>
#include <QPushButton>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {
class Delegate : public QObject
{
    Q_OBJECT

public:
    Q_INVOKABLE void alertDidEnd(NSAlert *alert, int returnCode, void *contextInfo)
    {
        hadAlert = alert != nullptr;
        code = returnCode;
        context = contextInfo;
        ++calls;
    }

    int calls = 0;
    int code = 99;
    bool hadAlert = false;
    void *context = nullptr;
};

const QString Key = u"deleteRecord"_s;

class KTDoNotShowAlertTests : public testing_support::WindowedTest
{
protected:
    KTDoNotShowAlertTests()
    {
        QApplication::setQuitOnLastWindowClosed(false);
        KTDoNotShowAlert::clearDoNotShowList();
        window.show();
    }
    ~KTDoNotShowAlertTests() override
    {
        KTDoNotShowAlert::clearDoNotShowList();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }

    KTDoNotShowAlert::Alert alert()
    {
        return {.title = u"Delete <b>it</b> & all?"_s,
                .defaultButton = u"Delete"_s,
                .alternateButton = u"Keep"_s,
                .otherButton = u"Ask & wait"_s,
                .window = &window,
                .modalDelegate = &delegate,
                .didEndSelector = "alertDidEnd:returnCode:contextInfo:",
                .contextInfo = &window,
                .msg = u"100%% of <i>it</i> goes."_s,
                .suppressionKey = Key};
    }
    /// The box that is shown; null if there is none.
    static QMessageBox *box()
    {
        const QWidgetList windows = QApplication::topLevelWidgets();
        for (QWidget *const each : windows) {
            if (auto *const found = qobject_cast<QMessageBox *>(each); found && found->isVisible())
                return found;
        }
        return nullptr;
    }
    static QPushButton *button(const QString &text)
    {
        const auto buttons = box()->findChildren<QPushButton *>();
        for (QPushButton *const each : buttons) {
            if (each->text() == text)
                return each;
        }
        return nullptr;
    }
    void click(const QString &text) { QTest::mouseClick(button(text), Qt::LeftButton); }

    QWidget window;
    Delegate delegate;
};
} // namespace

TEST_F(KTDoNotShowAlertTests, ShowsTheAlert)
{
    KTDoNotShowAlert::beginCriticalAlertSheet(alert());
    ASSERT_NE(box(), nullptr);
    EXPECT_EQ(box()->text(), u"Delete <b>it</b> & all?"_s);
    EXPECT_EQ(box()->textFormat(), Qt::PlainText);
    EXPECT_EQ(box()->informativeText(), u"100% of <i>it</i> goes."_s);
    EXPECT_EQ(box()->findChild<QLabel *>(u"qt_msgbox_informativelabel"_s)->textFormat(),
              Qt::PlainText);
    EXPECT_EQ(box()->icon(), QMessageBox::Critical);
    EXPECT_EQ(box()->windowModality(), Qt::WindowModal);
    EXPECT_FALSE(box()->checkBox()->isChecked());
    EXPECT_EQ(delegate.calls, 0);
    click(u"Delete"_s);
    EXPECT_EQ(delegate.calls, 1);
    EXPECT_EQ(delegate.code, 1);
    EXPECT_TRUE(delegate.hadAlert);
    EXPECT_EQ(delegate.context, &window);
    EXPECT_FALSE(KTDoNotShowAlert::boolForSuppressionKey(Key));
}

TEST_F(KTDoNotShowAlertTests, ButtonsWithoutTitleAreThoseOfNil)
{
    KTDoNotShowAlert::Alert untitled = alert();
    untitled.defaultButton = untitled.alternateButton = untitled.otherButton = u""_s;
    KTDoNotShowAlert::beginCriticalAlertSheet(untitled);
    const QList<QAbstractButton *> buttons = box()->buttons();
    ASSERT_EQ(buttons.size(), 1);
    EXPECT_EQ(buttons.first()->text(), u"OK");
    buttons.first()->click();
}

TEST_F(KTDoNotShowAlertTests, EachButtonHasItsCode)
{
    for (const auto &[text, code] :
         {std::pair(u"Delete"_s, 1), std::pair(u"Keep"_s, 0), std::pair(u"Ask && wait"_s, -1)}) {
        KTDoNotShowAlert::beginCriticalAlertSheet(alert());
        click(text);
        EXPECT_EQ(delegate.code, code) << text.toStdString();
    }
}

TEST_F(KTDoNotShowAlertTests, KeysAndClosingEndTheAlert)
{
    KTDoNotShowAlert::beginCriticalAlertSheet(alert());
    QTest::keyClick(box(), Qt::Key_Return);
    EXPECT_EQ(delegate.code, 1);
    KTDoNotShowAlert::beginCriticalAlertSheet(alert());
    QTest::keyClick(box(), Qt::Key_Escape);
    EXPECT_EQ(delegate.code, 0);
    delegate.code = 99;
    KTDoNotShowAlert::beginCriticalAlertSheet(alert());
    box()->close();
    EXPECT_EQ(delegate.code, 0);
    KTDoNotShowAlert::Alert single = alert();
    single.defaultButton = single.alternateButton = single.otherButton = QString();
    KTDoNotShowAlert::beginCriticalAlertSheet(single);
    EXPECT_NE(button(u"OK"_s), nullptr);
    QTest::keyClick(box(), Qt::Key_Escape);
    EXPECT_EQ(delegate.code, 1);
}

TEST_F(KTDoNotShowAlertTests, TickedItIsSkippedWhicheverButtonEndsIt)
{
    KTDoNotShowAlert::beginCriticalAlertSheet(alert());
    box()->checkBox()->setChecked(true);
    click(u"Keep"_s);
    EXPECT_EQ(delegate.code, 0);
    EXPECT_TRUE(KTDoNotShowAlert::boolForSuppressionKey(Key));
    KTDoNotShowAlert::beginCriticalAlertSheet(alert());
    EXPECT_EQ(box(), nullptr);
    EXPECT_EQ(delegate.calls, 2);
    EXPECT_EQ(delegate.code, 1);
    EXPECT_FALSE(delegate.hadAlert);
    EXPECT_EQ(delegate.context, &window);
}

TEST_F(KTDoNotShowAlertTests, SkippedWithoutDelegateNothingHappens)
{
    KTDoNotShowAlert::setBoolForSuppressionKey(Key, true);
    KTDoNotShowAlert::Alert quiet = alert();
    quiet.modalDelegate = nullptr;
    KTDoNotShowAlert::beginCriticalAlertSheet(quiet);
    EXPECT_EQ(box(), nullptr);
    EXPECT_EQ(delegate.calls, 0);
}

TEST_F(KTDoNotShowAlertTests, OnlyASkippedAlertNeedsTheMethod)
{
    KTDoNotShowAlert::Alert wrong = alert();
    wrong.didEndSelector = "nothing:returnCode:contextInfo:";
    KTDoNotShowAlert::beginCriticalAlertSheet(wrong);
    click(u"Keep"_s);
    EXPECT_EQ(delegate.calls, 0);
    KTDoNotShowAlert::setBoolForSuppressionKey(Key, true);
    const QString output = testing_support::standardErrorOf([&] {
        EXPECT_RAISES(KTDoNotShowAlert::beginCriticalAlertSheet(wrong),
                      NSInternalInconsistencyException, u"methodSig is nil"_s);
    });
    EXPECT_TRUE(output.contains(u"KTDoNotShowAlert:29"));
}

TEST_F(KTDoNotShowAlertTests, DelegatesMayGoFirst)
{
    auto shortLived = std::make_unique<Delegate>();
    KTDoNotShowAlert::Alert shown = alert();
    shown.modalDelegate = shortLived.get();
    KTDoNotShowAlert::beginCriticalAlertSheet(shown);
    shortLived.reset();
    click(u"Delete"_s);
    EXPECT_EQ(box(), nullptr);
}

TEST_F(KTDoNotShowAlertTests, WithItsWindowGoesTheAlert)
{
    auto shortLived = std::make_unique<QWidget>();
    shortLived->show();
    KTDoNotShowAlert::Alert shown = alert();
    shown.window = shortLived.get();
    KTDoNotShowAlert::beginCriticalAlertSheet(shown);
    const QPointer<QMessageBox> shownBox = box();
    ASSERT_FALSE(shownBox.isNull());
    shortLived.reset();
    EXPECT_TRUE(shownBox.isNull());
    EXPECT_EQ(delegate.calls, 0);
    EXPECT_FALSE(KTDoNotShowAlert::boolForSuppressionKey(Key));
}

TEST_F(KTDoNotShowAlertTests, TheListKeepsOneOfEachKey)
{
    EXPECT_FALSE(KTDoNotShowAlert::boolForSuppressionKey(Key));
    EXPECT_FALSE(KTDoNotShowAlert::boolForSuppressionKey(QString()));
    KTDoNotShowAlert::setBoolForSuppressionKey(Key, true);
    KTDoNotShowAlert::setBoolForSuppressionKey(u"other"_s, true);
    EXPECT_EQ(NSUserDefaults::standardUserDefaults()->dictionaryForKey(u"doNotShowList"_s).size(),
              2);
    KTDoNotShowAlert::setBoolForSuppressionKey(Key, false);
    EXPECT_FALSE(KTDoNotShowAlert::boolForSuppressionKey(Key));
    KTDoNotShowAlert::clearDoNotShowList();
    EXPECT_FALSE(KTDoNotShowAlert::boolForSuppressionKey(u"other"_s));
    EXPECT_FALSE(
        NSUserDefaults::standardUserDefaults()->objectForKey(u"doNotShowList"_s).isValid());
}

TEST_F(KTDoNotShowAlertTests, SuppressedAlertsAreListedWithTheirTitles)
{
    EXPECT_TRUE(KTDoNotShowAlert::suppressedAlerts().isEmpty());
    KTDoNotShowAlert::beginCriticalAlertSheet(alert());
    box()->checkBox()->setChecked(true);
    click(u"Delete"_s);
    KTDoNotShowAlert::setBoolForSuppressionKey(u"silent"_s, true);
    const QList<KTDoNotShowAlert::Suppressed> expected = {{Key, u"Delete <b>it</b> & all?"_s},
                                                          {u"silent"_s, QString()}};
    EXPECT_EQ(KTDoNotShowAlert::suppressedAlerts(), expected);
    KTDoNotShowAlert::setBoolForSuppressionKey(Key, false);
    EXPECT_EQ(KTDoNotShowAlert::suppressedAlerts().size(), 1);
}

TEST_F(KTDoNotShowAlertTests, MessagesAreFormats)
{
    KTDoNotShowAlert::Alert odd = alert();
    odd.msg = u"%d and %@"_s;
    KTDoNotShowAlert::beginCriticalAlertSheet(odd);
    EXPECT_EQ(box()->informativeText(), u"0 and (null)"_s);
    click(u"Delete"_s);
    odd.msg = QString();
    odd.window = nullptr;
    KTDoNotShowAlert::beginCriticalAlertSheet(odd);
    ASSERT_NE(box(), nullptr);
    click(u"Delete"_s);
    EXPECT_EQ(delegate.calls, 2);
}

TEST_F(KTDoNotShowAlertTests, LongAndRightToLeftTextsAreShown)
{
    KTDoNotShowAlert::Alert odd = alert();
    const QString hebrew = u"\u05DE\u05D7\u05D9\u05E7\u05D4 100%% \u202E"_s;
    odd.title = hebrew;
    for (const QString &text : testing_support::hostileTexts()) {
        odd.msg = QString(text).replace(u'%', u"%%"_s);
        KTDoNotShowAlert::beginCriticalAlertSheet(odd);
        ASSERT_NE(box(), nullptr);
        EXPECT_EQ(box()->text(), hebrew);
        // Whatever the text, the buttons are within reach.
        EXPECT_LT(box()->sizeHint().height(), 1200);
        EXPECT_LT(box()->informativeText().size(), 2000);
        click(u"Keep"_s);
    }
    EXPECT_EQ(delegate.code, NSAlertAlternateReturn);
}

TEST_F(KTDoNotShowAlertTests, AFunctionIsToldTheButton)
{
    int code = 99;
    const auto keep = [&](NSAlertReturnCode returnCode) { code = returnCode; };
    for (const auto &[text, expected] :
         {std::pair(u"Delete"_s, 1), std::pair(u"Keep"_s, 0), std::pair(u"Ask && wait"_s, -1)}) {
        KTDoNotShowAlert::ask(alert(), &window, keep);
        click(text);
        EXPECT_EQ(code, expected) << text.toStdString();
    }
    KTDoNotShowAlert::setBoolForSuppressionKey(Key, true);
    KTDoNotShowAlert::ask(alert(), &window, keep);
    EXPECT_EQ(code, NSAlertDefaultReturn);
    EXPECT_EQ(box(), nullptr);
    EXPECT_EQ(delegate.calls, 0);
}

TEST_F(KTDoNotShowAlertTests, NoFunctionIsCalledOfAnObjectThatIsGone)
{
    auto context = std::make_unique<QObject>();
    KTDoNotShowAlert::ask(alert(), context.get(), [](NSAlertReturnCode) { FAIL(); });
    context.reset();
    click(u"Delete"_s);
    KTDoNotShowAlert::setBoolForSuppressionKey(Key, true);
    KTDoNotShowAlert::ask(alert(), nullptr, [](NSAlertReturnCode) { FAIL(); });
    KTDoNotShowAlert::ask(alert(), &window, {});
}

TEST_F(KTDoNotShowAlertTests, AnExceptionAtTheEndIsLogged)
{
    const auto raise = [](NSAlertReturnCode) { NSException::raise(u"Broken"_s, u"by hand"_s); };
    KTDoNotShowAlert::ask(alert(), &window, raise);
    const QString log = testing_support::standardErrorOf([&] { click(u"Delete"_s); });
    EXPECT_TRUE(log.endsWith(u"*** exception in the end of an alert: Broken: by hand\n"))
        << log.toStdString();
    // Who asks gets what a plain call raises.
    KTDoNotShowAlert::setBoolForSuppressionKey(Key, true);
    EXPECT_THROW(KTDoNotShowAlert::ask(alert(), &window, raise), NSException);
}

TEST_F(KTDoNotShowAlertTests, OnlyTheDefaultButtonMaySilence)
{
    KTDoNotShowAlert::Alert careful = alert();
    careful.silencedBy = KTDoNotShowAlert::SilencedBy::DefaultButton;
    const auto silencedAfter = [&](const QString &button) {
        KTDoNotShowAlert::clearDoNotShowList();
        KTDoNotShowAlert::ask(careful, &window, [](NSAlertReturnCode) {});
        box()->checkBox()->setChecked(true);
        click(button);
        return KTDoNotShowAlert::boolForSuppressionKey(Key);
    };
    EXPECT_FALSE(silencedAfter(u"Keep"_s));
    EXPECT_TRUE(KTDoNotShowAlert::suppressedAlerts().isEmpty());
    EXPECT_FALSE(silencedAfter(u"Ask && wait"_s));
    EXPECT_TRUE(silencedAfter(u"Delete"_s));
    careful.silencedBy = KTDoNotShowAlert::SilencedBy::AnyButton;
    EXPECT_TRUE(silencedAfter(u"Keep"_s));
}

TEST_F(KTDoNotShowAlertTests, AMissingMethodIsToldWhenTheAlertIsShown)
{
    KTDoNotShowAlert::Alert wrong = alert();
    wrong.didEndSelector = "alertDdiEnd:returnCode:contextInfo:";
    const QString log =
        testing_support::standardErrorOf([&] { KTDoNotShowAlert::beginCriticalAlertSheet(wrong); });
    EXPECT_TRUE(log.contains(u"*** the delegate of an alert: -[Delegate alertDdiEnd:"))
        << log.toStdString();
    click(u"Delete"_s);
    const QString silence = testing_support::standardErrorOf(
        [&] { KTDoNotShowAlert::beginCriticalAlertSheet(alert()); });
    EXPECT_FALSE(silence.contains(u"the delegate of an alert")) << silence.toStdString();
    click(u"Delete"_s);
}

#include "KTDoNotShowAlertTests.moc"
