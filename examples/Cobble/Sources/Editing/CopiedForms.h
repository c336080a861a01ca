#pragma once

#include "CopiedRecords.h"

#include <QMimeData>

/// Copied records in all forms that programs ask a clipboard for: as text with tabs, as separated
/// values and as an HTML table with the titles above, and exactly. Each is made when it is wanted.
///
/// \code
/// QGuiApplication::clipboard()->setMimeData(new CopiedForms(records));
/// \endcode
class CopiedForms : public QMimeData
{
    Q_OBJECT

public:
    explicit CopiedForms(const CopiedRecords &records) : _records(records) {}

    /// The forms, the best first.
    static QStringList names();

    QStringList formats() const override { return names(); }

protected:
    QVariant retrieveData(const QString &mimeType, QMetaType type) const override;

private:
    QString tabbed() const;
    QString separated() const;
    QString table() const;

    CopiedRecords _records;
};
