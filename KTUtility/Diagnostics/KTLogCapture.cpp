#include "KTLogCapture.h"

#include <QMutexLocker>

KTLogCapture::KTLogCapture(const QString &component, int level, KTLogger *logger)
    : _logger(logger), _outer(logger->_capture), _savedComponents(logger->_components)
{
    _logger->_capture = this;
    setLevelOfComponent(level, component);
}

KTLogCapture::~KTLogCapture()
{
    _logger->_capture = _outer;
    _logger->setComponents(_savedComponents);
}

void KTLogCapture::setLevelOfComponent(int level, const QString &component)
{
    QVariantMap components = _logger->_components.value_or(QVariantMap());
    components.insert(component, level);
    _logger->setComponents(components);
}

QList<KTLogCapture::Entry> KTLogCapture::entries() const
{
    const QMutexLocker lock(&_mutex);
    return _entries;
}

QStringList KTLogCapture::messages() const
{
    QStringList messages;
    for (const Entry &entry : entries())
        messages += entry.message;
    return messages;
}

void KTLogCapture::clear()
{
    const QMutexLocker lock(&_mutex);
    _entries.clear();
}

void KTLogCapture::add(const QString &component, int level, std::string_view file, int lineNumber,
                       QStringView message)
{
    const QMutexLocker lock(&_mutex);
    _entries.append({component, level, QString::fromUtf8(file.data(), qsizetype(file.size())),
                     lineNumber, message.toString()});
}
