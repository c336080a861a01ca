#include "KTFormatterValidator.h"

#include "TextReading_p.h"

using namespace KTPrivate;

KTFormatterValidator::KTFormatterValidator(std::shared_ptr<const NSFormatter> formatter,
                                           QObject *parent)
    : QValidator(parent), _formatter(std::move(formatter))
{
}

QValidator::State KTFormatterValidator::validate(QString &input, int &) const
{
    return TextReading::judge(_formatter.get(), input);
}

void KTFormatterValidator::fixup(QString &input) const
{
    const QString meant = TextReading::completed(_formatter.get(), input);
    if (!meant.isNull())
        input = editingText(_formatter.get(), TextReading::of(_formatter.get(), meant).value);
}
