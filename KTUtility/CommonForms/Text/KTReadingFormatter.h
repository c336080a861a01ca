#pragma once

#include "KTReading.h"
#include <KTUtility/KTUtilityExport.h>
#include <KTUtility/Platform/Numbers/NSFormatter.h>

/// The base of the framework's formatters: reading what people commonly type beside the forms that
/// a formatter reads always, and telling how a text was understood.
///
/// Reading common forms is off at first; then nothing differs from a formatter without it. It is not
/// among the options, since it belongs to the program rather than to a field's format.
///
/// \code
/// KTDurationFormatter formatter;
/// QVariant value;
/// formatter.getObjectValue(&value, u"1:30"_s);    // false
/// formatter.setReadsCommonForms(true);
/// formatter.getObjectValue(&value, u"1:30"_s);    // true, 5400
/// formatter.reading().form;                       // "common.clock"
/// \endcode
class KTUTILITY_EXPORT KTReadingFormatter : public NSFormatter
{
    Q_OBJECT
    Q_PROPERTY(bool readsCommonForms READ readsCommonForms WRITE setReadsCommonForms NOTIFY
                   readsCommonFormsChanged)

public:
    using NSFormatter::NSFormatter;

    /// Whether common forms are read; docs/common-forms.md says which these are.
    bool readsCommonForms() const { return _readsCommonForms; }
    /// Reads them from now on, or not.
    virtual void setReadsCommonForms(bool readsCommonForms);

    /// How the last text was understood; not read while readsCommonForms() is off, and before the
    /// first text.
    const KTReading &reading() const { return _reading; }

Q_SIGNALS:
    void readsCommonFormsChanged();

protected:
    /// Keeps how a text was understood; to be called by each reading of a text, also of one that
    /// cannot be read.
    void setReading(KTReading reading) const;

private:
    mutable KTReading _reading;
    bool _readsCommonForms = false;
};
