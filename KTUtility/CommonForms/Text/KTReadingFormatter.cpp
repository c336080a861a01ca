#include "KTReadingFormatter.h"

#include <utility>

void KTReadingFormatter::setReadsCommonForms(bool readsCommonForms)
{
    if (readsCommonForms == _readsCommonForms)
        return;
    _readsCommonForms = readsCommonForms;
    _reading = {};
    Q_EMIT readsCommonFormsChanged();
}

void KTReadingFormatter::setReading(KTReading reading) const
{
    _reading = std::move(reading);
}
