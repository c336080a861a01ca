#pragma once

#include <QIODevice>
#include <QObject>
#include <QStringList>
#include <QVariant>

/// The records that an exporter gets, one after the other.
class CobbleRecordSource
{
public:
    virtual ~CobbleRecordSource() = default;

    virtual QString libraryName() const = 0;
    /// What stood above the fields when they were imported; several may have the same title, or
    /// none ("").
    virtual QStringList fieldTitles() const = 0;
    /// Names of the fields that are identifiers, and different from each other.
    virtual QStringList fieldNames() const = 0;

    /// Goes to the next record, at first to the first one.
    /// \return false if there is none.
    virtual bool next() = 0;
    /// The value of a field: an NSDecimalNumber for numbers, money and durations (in seconds), a
    /// QDateTime for dates and times, a QString for everything else; nil. To ask for a field that
    /// there is not, or before next(), fails the export.
    virtual QVariant value(qsizetype field) const = 0;
    /// The value as the field shows it in the user's locale; "" for nil.
    virtual QString text(qsizetype field) const = 0;
};

/// What the principal class of an exporter implements. Exporters lie in "PlugIns/Exporters".
///
/// \code
/// class ListExporter : public QObject, public CobbleExporter
/// {
///     Q_OBJECT
///     Q_INTERFACES(CobbleExporter)
///
/// public:
///     static void pluginWillUnload() {}
///     static void pluginDidUnload() {}
///     QStringList fileTypes() const override { return {u"txt"_s}; }
///     bool exportRecords(CobbleRecordSource &records, const QString &, QIODevice *to,
///                        QString *) override;
/// };
///
/// KT_PRINCIPAL_CLASS(ListExporter, CobbleExporter)
/// \endcode
class CobbleExporter
{
public:
    virtual ~CobbleExporter() = default;

    /// The extensions of the files that it writes, in small letters.
    virtual QStringList fileTypes() const = 0;
    /// Writes all records. If the result is false, or it throws, the file that was there stays.
    /// \param fileType one of fileTypes().
    /// \param to is open for writing, and can be sought in; closing it is up to the host.
    /// \param error receives why the result is false.
    virtual bool exportRecords(CobbleRecordSource &records, const QString &fileType, QIODevice *to,
                               QString *error) = 0;
};

Q_DECLARE_INTERFACE(CobbleExporter, "org.cobble.Cobble.Exporter/1")
