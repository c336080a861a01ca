#include "NothingFound.h"

#include <QAbstractScrollArea>
#include <QEvent>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

NothingFound::NothingFound(QAbstractScrollArea *table)
    : QWidget(table->viewport()), _label(new QLabel), _showAll(new QPushButton(tr("Show &All")))
{
    setObjectName(u"nothingFound"_s);
    _label->setTextFormat(Qt::PlainText);
    _label->setAlignment(Qt::AlignCenter);
    _label->setWordWrap(true);
    auto *const layout = new QVBoxLayout(this);
    layout->addStretch();
    layout->addWidget(_label);
    layout->addWidget(_showAll, 0, Qt::AlignHCenter);
    layout->addStretch();
    table->viewport()->installEventFilter(this);
    hide();
}

void NothingFound::setText(const QString &text)
{
    _label->setText(text);
    setGeometry(parentWidget()->rect());
    setVisible(!text.isNull());
}

QString NothingFound::text() const
{
    return isHidden() ? QString() : _label->text();
}

bool NothingFound::eventFilter(QObject *object, QEvent *event)
{
    if (object == parentWidget() && event->type() == QEvent::Resize)
        setGeometry(parentWidget()->rect());
    return false;
}
