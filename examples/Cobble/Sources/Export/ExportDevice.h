#pragma once

#include <QIODevice>

class QFileDevice;

/// The file of an export, as an exporter gets it: to write to and to seek in. What the exporter closes
/// is not the file, which only the host commits or gives up.
///
/// \code
/// KTSaveFile file(path);
/// file.open(QIODevice::WriteOnly);
/// ExportDevice device(&file);
/// exporter->exportRecords(records, u"csv"_s, &device, &error);
/// file.commit();
/// \endcode
class ExportDevice : public QIODevice
{
public:
    /// \param file is open for writing, and must outlive the device.
    explicit ExportDevice(QFileDevice *file);

    /// It is open already.
    /// \return false.
    bool open(OpenMode mode) override;
    /// Does nothing: what is written later is written, too.
    void close() override {}
    qint64 size() const override;
    bool seek(qint64 position) override;

protected:
    qint64 readData(char *data, qint64 size) override;
    qint64 writeData(const char *data, qint64 size) override;

private:
    QFileDevice *_file;
};
