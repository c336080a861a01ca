#include "KTDoNotShowAlert.h"

#include <KTUtility/Platform/Diagnostics/NSAssertionHandler.h>
#include <KTUtility/Platform/Files/NSUserDefaults.h>
#include <KTUtility/Platform/Keys/Invoker.h>
#include <KTUtility/Platform/Keys/MissingSelector_p.h>
#include <KTUtility/Platform/Values/NSObject.h>
#include <KTUtility/Platform/Values/NSStringFormat.h>
#include <KTUtility/Platform/Values/WhileAlive_p.h>

#include <QCheckBox>
#include <QPointer>

using namespace KTPrivate;
using namespace Qt::StringLiterals;

namespace {
const QString SilencedAlertsKey = u"doNotShowList"_s;
const QString TitlesKey = u"doNotShowTitles"_s;

/// The alert, the button, and what the caller hands on.
constexpr int DelegateArguments = 3;

NSUserDefaults *defaults()
{
    return NSUserDefaults::standardUserDefaults();
}

bool responds(QObject *delegate, const NSSelector &selector)
{
    return delegate && Invoker::respondsTo(KeyValueTarget::of(delegate), selector);
}

void tell(QObject *delegate, const NSSelector &selector, NSAlert *alert, int returnCode,
          void *contextInfo)
{
    Invoker invoker(selector,
                    {QVariant::fromValue(alert), returnCode, QVariant::fromValue(contextInfo)});
    invoker.perform(KeyValueTarget::of(delegate));
}

void rememberTitle(const QString &key, const QString &title)
{
    QVariantMap titles = defaults()->dictionaryForKey(TitlesKey);
    titles.insert(key, title);
    defaults()->setObject(titles, TitlesKey);
}
} // namespace

/// What is kept until an alert ends.
struct KTDoNotShowAlert::Context
{
    QPointer<QObject> modalDelegate;
    NSSelector didEndSelector;
    void *contextInfo = nullptr;
};

void KTDoNotShowAlert::show(const Alert &alert, const NSAlert::DidEnd &didEnd)
{
    auto *const shown = new NSAlert(alert.title, alert.defaultButton, alert.alternateButton,
                                    alert.otherButton, NSString::stringWithFormat(alert.msg));
    shown->setAlertStyle(NSCriticalAlertStyle);
    shown->setShowsSuppressionButton(true);
    shown->beginSheetModalForWindow(alert.window,
                                    [didEnd, key = alert.suppressionKey,
                                     by = alert.silencedBy](NSAlert *ended, int returnCode) {
                                        rememberSilence(*ended, returnCode, key, by);
                                        didEnd(ended, returnCode);
                                    });
}

void KTDoNotShowAlert::ask(const Alert &alert, QObject *context, DidEnd didEnd)
{
    const DidEnd tell = whileAlive(context, std::move(didEnd));
    if (boolForSuppressionKey(alert.suppressionKey))
        tell(NSAlertDefaultReturn);
    else
        show(alert, [tell](NSAlert *, int returnCode) { tell(NSAlertReturnCode(returnCode)); });
}

void KTDoNotShowAlert::beginCriticalAlertSheet(const Alert &alert)
{
    if (!boolForSuppressionKey(alert.suppressionKey)) {
        reportMissingSelector(alert.modalDelegate, alert.didEndSelector, DelegateArguments,
                              u"the delegate of an alert");
        const Context context{alert.modalDelegate, alert.didEndSelector, alert.contextInfo};
        show(alert, [context](NSAlert *ended, int returnCode) {
            alertDidEnd(ended, returnCode, context);
        });
        return;
    }
    if (!alert.modalDelegate)
        return;
    if (!responds(alert.modalDelegate, alert.didEndSelector)) {
        NSAssertionHandler::currentHandler()->handleFailureInMethod(
            u"beginCriticalAlertSheet:defaultButton:alternateButton:otherButton:"
            "window:modalDelegate:didEndSelector:contextInfo:msg:suppressionKey:"_s,
            NSAssertionSubject::classNamed(u"KTDoNotShowAlert"_s), u"KTDoNotShowAlert"_s, 29,
            u"methodSig is nil"_s);
        return;
    }
    tell(alert.modalDelegate, alert.didEndSelector, nullptr, NSAlertDefaultReturn,
         alert.contextInfo);
}

void KTDoNotShowAlert::rememberSilence(const NSAlert &alert, int returnCode, const QString &key,
                                       SilencedBy silencedBy)
{
    const QCheckBox *const box = alert.suppressionButton();
    const bool counts = silencedBy == SilencedBy::AnyButton || returnCode == NSAlertDefaultReturn;
    if (!counts || !box || box->checkState() == Qt::Unchecked)
        return;
    setBoolForSuppressionKey(key, true);
    rememberTitle(key, alert.messageText());
}

// Deliberate: a delegate without the method is an error only if the alert is skipped.
void KTDoNotShowAlert::alertDidEnd(NSAlert *alert, int returnCode, const Context &context)
{
    if (responds(context.modalDelegate, context.didEndSelector))
        tell(context.modalDelegate, context.didEndSelector, alert, returnCode, context.contextInfo);
}

void KTDoNotShowAlert::clearDoNotShowList()
{
    defaults()->removeObjectForKey(SilencedAlertsKey);
    defaults()->removeObjectForKey(TitlesKey);
}

bool KTDoNotShowAlert::boolForSuppressionKey(const QString &key)
{
    return NSObject::boolValue(defaults()->dictionaryForKey(SilencedAlertsKey).value(key));
}

void KTDoNotShowAlert::setBoolForSuppressionKey(const QString &key, bool suppress)
{
    QVariantMap list = defaults()->dictionaryForKey(SilencedAlertsKey);
    list.insert(key, suppress);
    defaults()->setObject(list, SilencedAlertsKey);
}

QList<KTDoNotShowAlert::Suppressed> KTDoNotShowAlert::suppressedAlerts()
{
    const QVariantMap list = defaults()->dictionaryForKey(SilencedAlertsKey);
    const QVariantMap titles = defaults()->dictionaryForKey(TitlesKey);
    QList<Suppressed> alerts;
    for (auto entry = list.begin(); entry != list.end(); ++entry) {
        if (NSObject::boolValue(entry.value()))
            alerts += {entry.key(), titles.value(entry.key()).toString()};
    }
    return alerts;
}
