#include "NameSheet.h"

#include "Appearance/ProblemLabel.h"

#include <QComboBox>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QLineEdit>

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
    auto *const buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
    QObject::connect(buttons, &QDialogButtonBox::accepted, this, &NameSheet::accept);
    QObject::connect(buttons, &QDialogButtonBox::rejected, this, &NameSheet::reject);
    auto *const layout = new QFormLayout(this);
    layout->addRow(tr("&Name:"), _name);
    layout->addRow(_problem);
    layout->addRow(buttons);
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
    addType(tr("Text"), FieldType::Text);
    addType(tr("Number"), FieldType::Number);
    addType(tr("Currency"), FieldType::Currency);
    addType(tr("Duration"), FieldType::Duration);
    addType(tr("Date"), FieldType::Date);
    addType(tr("Time"), FieldType::Time);
    addType(tr("Date and time"), FieldType::DateTime);
    addType(tr("Phone number"), FieldType::Phone);
    addType(tr("Picture"), FieldType::Media);
    static_cast<QFormLayout *>(layout())->insertRow(1, tr("&Type:"), _type);
}

void NameSheet::addType(const QString &title, FieldType type)
{
    _type->addItem(title, int(type));
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
