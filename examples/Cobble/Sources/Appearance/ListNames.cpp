#include "ListNames.h"

#include <QAbstractItemView>
#include <QAccessible>
#include <QComboBox>

void ListNames::give(const QWidget *window)
{
    for (QComboBox *const box : window->findChildren<QComboBox *>()) {
        if (QAccessibleInterface *const spoken = QAccessible::queryAccessibleInterface(box))
            box->view()->setAccessibleName(spoken->text(QAccessible::Name));
    }
}
