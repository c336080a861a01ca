#include "SilencedAlerts.h"

#include <KTUtility/KTDoNotShowAlert>
#include <KTUtility/NSClassRegistry>

#include <QListWidget>
#include <QPushButton>

KT_REGISTER_CLASS(SilencedAlerts)

SilencedAlerts::SilencedAlerts() : KTDialogController(QStringLiteral(":/Cobble/SilencedAlerts.ui"))
{
}

void SilencedAlerts::windowDidLoad()
{
    KTDialogController::windowDidLoad();
    QObject::connect(outlet<QPushButton>(QStringLiteral("closeButton")), &QPushButton::clicked,
                     this, [this] { endDialog(); });
    QObject::connect(outlet<QPushButton>(QStringLiteral("showAgainButton")), &QPushButton::clicked,
                     this, &SilencedAlerts::showAgain);
    QObject::connect(outlet<QListWidget>(QStringLiteral("alertList")),
                     &QListWidget::itemSelectionChanged, this, &SilencedAlerts::updateButton);
}

void SilencedAlerts::configDialog()
{
    KTDialogController::configDialog();
    fill();
}

void SilencedAlerts::fill()
{
    auto *const list = outlet<QListWidget>(QStringLiteral("alertList"));
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
    const bool hasSelection =
        !outlet<QListWidget>(QStringLiteral("alertList"))->selectedItems().isEmpty();
    outlet<QPushButton>(QStringLiteral("showAgainButton"))->setEnabled(hasSelection);
}

void SilencedAlerts::showAgain()
{
    for (const QListWidgetItem *const item :
         outlet<QListWidget>(QStringLiteral("alertList"))->selectedItems())
        KTDoNotShowAlert::setBoolForSuppressionKey(item->data(Qt::UserRole).toString(), false);
    fill();
}
