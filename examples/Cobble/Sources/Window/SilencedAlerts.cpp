#include "SilencedAlerts.h"

#include <KTUtility/KTDoNotShowAlert>
#include <KTUtility/NSClassRegistry>

#include <QListWidget>
#include <QPushButton>

using namespace Qt::StringLiterals;

KT_REGISTER_CLASS(SilencedAlerts)

SilencedAlerts::SilencedAlerts() : KTDialogController(u":/Cobble/SilencedAlerts.ui"_s) {}

void SilencedAlerts::windowDidLoad()
{
    KTDialogController::windowDidLoad();
    QObject::connect(outlet<QPushButton>(u"closeButton"_s), &QPushButton::clicked, this,
                     [this] { endDialog(); });
    QObject::connect(outlet<QPushButton>(u"showAgainButton"_s), &QPushButton::clicked, this,
                     &SilencedAlerts::showAgain);
    QObject::connect(outlet<QListWidget>(u"alertList"_s), &QListWidget::itemSelectionChanged, this,
                     &SilencedAlerts::updateButton);
}

void SilencedAlerts::configDialog()
{
    KTDialogController::configDialog();
    fill();
}

void SilencedAlerts::fill()
{
    auto *const list = outlet<QListWidget>(u"alertList"_s);
    list->clear();
    for (const KTDoNotShowAlert::Suppressed &alert : KTDoNotShowAlert::suppressedAlerts()) {
        auto *const item =
            new QListWidgetItem(alert.title.isEmpty() ? alert.key : alert.title, list);
        item->setData(Qt::UserRole, alert.key);
    }
    updateButton();
}

void SilencedAlerts::updateButton()
{
    const bool hasSelection = !outlet<QListWidget>(u"alertList"_s)->selectedItems().isEmpty();
    outlet<QPushButton>(u"showAgainButton"_s)->setEnabled(hasSelection);
}

void SilencedAlerts::showAgain()
{
    for (const QListWidgetItem *const item : outlet<QListWidget>(u"alertList"_s)->selectedItems())
        KTDoNotShowAlert::setBoolForSuppressionKey(item->data(Qt::UserRole).toString(), false);
    fill();
}
