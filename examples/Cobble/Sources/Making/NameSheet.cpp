#include "NameSheet.h"

#include "Appearance/ListNames.h"
#include "Appearance/ProblemLabel.h"
#include "Fields/FieldTypeTitles.h"

#include <QComboBox>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QLineEdit>
#include <QPushButton>

using namespace Qt::StringLiterals;

NameSheet::NameSheet(QWidget *window, const QString &title, const Answer &answer)
    : QDialog(window), _answer(answer), _name(new QLineEdit(this)), _problem(new ProblemLabel(this))
{
    setWindowTitle(title);
    setWindowModality(Qt::WindowModal);
    setAttribute(Qt::WA_DeleteOnClose);
    _name->setObjectName(u"nameEdit"_s);
    _name->setMinimumWidth(280);
    _problem->setObjectName(u"problemLabel"_s);
    _problem->setTextFormat(Qt::PlainText);
    _problem->setWordWrap(true);
    auto *const layout = new QFormLayout(this);
    layout->addRow(tr("&Name:"), _name);
    layout->addRow(_problem);
    layout->addRow(makeButtons());
}

/// Qt's own translations of their titles may not be installed.
QDialogButtonBox *NameSheet::makeButtons()
{
    auto *const buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
    buttons->button(QDialogButtonBox::Ok)->setText(tr("OK"));
    buttons->button(QDialogButtonBox::Cancel)->setText(tr("Cancel"));
    QObject::connect(buttons, &QDialogButtonBox::accepted, this, &NameSheet::accept);
    QObject::connect(buttons, &QDialogButtonBox::rejected, this, &NameSheet::reject);
    return buttons;
}

void NameSheet::setName(const QString &name)
{
    _name->setText(name);
    _name->selectAll();
}

void NameSheet::needType()
{
    _type = new QComboBox(this);
    _type->setObjectName(u"typeBox"_s);
    for (const FieldType type : FieldTypeTitles::types())
        _type->addItem(FieldTypeTitles::titleOf(type), int(type));
    static_cast<QFormLayout *>(layout())->insertRow(1, tr("&Type:"), _type);
    setTabOrder(_name, _type);
    ListNames::give(this);
}

FieldType NameSheet::type() const
{
    return _type ? FieldType(_type->currentData().toInt()) : FieldType::Text;
}

void NameSheet::accept()
{
    const Outcome<> answered = _answer(_name->text().trimmed(), type());
    if (answered) {
        QDialog::accept();
        return;
    }
    _problem->setText(answered.reason());
    _name->setFocus();
}
