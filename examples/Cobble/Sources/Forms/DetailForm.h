#pragma once

#include "FormField.h"
#include "FormRow.h"

#include <KTUtility/KTFieldDetailBinder>
#include <KTUtility/NSArrayController>

#include <memory>
#include <vector>

/// A form without a window: a row for each field, which shows and edits the value of the selected
/// record.
///
/// \code
/// NSArrayController records;
/// DetailForm form(&records);
/// form.setFields(fields);
/// records.setSelectionIndex(0);
/// form.rows().at(1)->text();                          // "3/4/2008"
/// form.rows().at(1)->setText(u"5 May"_s); // changes the record
/// \endcode
class DetailForm : public QObject
{
    Q_OBJECT

public:
    /// \param records whose selection is shown; must outlive the form.
    explicit DetailForm(NSArrayController *records);
    ~DetailForm() override;

    /// Replaces the fields; they must live as long as they are shown.
    void setFields(const QList<FormField *> &fields);
    /// The rows, in the order of the fields.
    QList<FormRow *> rows() const;

    // --- What the binder calls

    Q_INVOKABLE QObject *createNewFieldDetailObjectForField(QObject *field);
    Q_INVOKABLE void fieldDetailObjectWasBound(QObject *detail, QObject *toField);
    Q_INVOKABLE void fieldDetailObjectWillBeDestroyed(QObject *detail);
    Q_INVOKABLE void fieldDetailObjectsFinishedRearrange();

Q_SIGNALS:
    /// Rows were added, removed or moved; not sent when they are destroyed with the form.
    void rowsChanged();

private:
    NSArrayController _fields;
    std::vector<std::unique_ptr<FormRow>> _rows;
    // Behind what its calls use.
    std::unique_ptr<KTFieldDetailBinder> _binder;
};
