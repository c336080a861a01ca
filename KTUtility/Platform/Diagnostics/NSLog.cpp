#include "NSLog.h"

#include <KTUtility/Platform/Disk/NSFileHandle.h>
#include <KTUtility/Platform/Text/UTF8_p.h>
#include <KTUtility/Platform/Text/UnitBuffer_p.h>
#include <KTUtility/Platform/Values/WallClock_p.h>

#include <QDateTime>

#include <cerrno>
#include <unistd.h>

using namespace KTPrivate;
using namespace Qt::StringLiterals;

namespace {
QString linePrefix()
{
    const QDateTime now = QDateTime::fromMSecsSinceEpoch(KTPrivate::WallClock::milliseconds());
    return now.toString(u"yyyy-MM-dd HH:mm:ss.zzz"_s) + u' ' +
           QString::fromLocal8Bit(program_invocation_short_name) + u'[' +
           QString::number(::getpid()) + u':' + QString::number(::gettid(), 16) + u"] "_s;
}
} // namespace

void NSLogText(QStringView text)
{
    const QString line = linePrefix() + text + u'\n';
    NSFileHandle(STDERR_FILENO, NSFileHandle::Ownership::Borrowed).writeData(utf8Of(line));
}

void NSLogArguments(QStringView format, std::span<const NSFormatArgument> arguments)
{
    UnitBuffer text;
    NSString::appendFormatArguments(text, format, arguments, ArgumentText::Visible);
    NSLogText(text.view());
}
