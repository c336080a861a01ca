#include "KTDesignerWidget_p.h"

#include <QIcon>

using namespace Qt::StringLiterals;

namespace {
/// The name that a new object gets: the class without its prefix, with a small letter.
QString objectNameFor(const QString &className)
{
    const QString plain = className.sliced(2);
    return plain.first(1).toLower() + plain.sliced(1);
}
} // namespace

KTDesignerWidget::KTDesignerWidget(const KTDesignerDescription &description)
    : _description(description)
{
}

QIcon KTDesignerWidget::icon() const
{
    return {};
}

QString KTDesignerWidget::domXml() const
{
    return u"<ui language=\"c++\"><widget class=\"%1\" name=\"%2\">%3</widget>"
           "<customwidgets><customwidget><class>%1</class><extends>%4</extends>"
           "</customwidget></customwidgets></ui>"_s.arg(
               _description.className, objectNameFor(_description.className), _description.contents,
               _description.baseName);
}
