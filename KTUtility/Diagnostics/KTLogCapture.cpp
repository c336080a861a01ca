#include "KTLogCapture.h"

#include <QMutexLocker>

KTLogCapture::KTLogCapture(const QString &component, int level, KTLogger *logger)
    : _logger(logger), _outer(logger->_capture)
{
    _logger->_capture = this;
    setLevelOfComponent(level, component);
}

KTLogCapture::~KTLogCapture()
{
    _logger->_capture = _outer;
    _logger->updateLevels();
}

void KTLogCapture::setLevelOfComponent(int level, const QString &component)
{
    _levels.insert(component, level);
    _logger->updateLevels();
}

void KTLogCapture::addLevels(QVariantMap *levels) const
{
    if (_outer)
        _outer->addLevels(levels);
    levels->insert(_levels);
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
