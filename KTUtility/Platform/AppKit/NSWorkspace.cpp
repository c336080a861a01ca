#include "NSWorkspace.h"

#include <QApplication>
#include <QStyle>

bool NSWorkspace::accessibilityDisplayShouldReduceMotion()
{
    if (!qobject_cast<QApplication *>(QCoreApplication::instance()))
        return false;
    return QApplication::style()->styleHint(QStyle::SH_Widget_Animation_Duration) <= 0;
}
