#include "NSString_KTAdditions.h"

#include <KTUtility/Platform/AppKit/NSFont.h>
#include <KTUtility/Platform/Files/NSFileManager.h>
#include <KTUtility/Platform/Files/NSPathUtilities.h>
#include <KTUtility/Platform/Text/NSStringEncoding.h>
#include <KTUtility/Platform/Values/NSDecimalNumber.h>
#include <KTUtility/Platform/Values/NSScanner.h>
#include <KTUtility/Platform/Values/NSStringFormat.h>
#include <KTUtility/Platform/Values/NSStringValues.h>

#include <QFileInfo>
#include <QTextCharFormat>
#include <QUuid>

using namespace Qt::StringLiterals;

NSAttributedString KTAdditions::hyperlink(const QString &receiver)
{
    QTextCharFormat format;
    format.setForeground(Qt::blue);
    format.setFont(NSFont::systemFontOfSize(NSFont::smallSystemFontSize));
    format.setUnderlineStyle(QTextCharFormat::SingleUnderline);
    format.setAnchor(true);
    format.setAnchorHref(receiver);
    return NSAttributedString(receiver, format);
}

QString KTAdditions::UUID()
{
    return QUuid::createUuid().toString(QUuid::WithoutBraces).toUpper();
}

QString KTAdditions::UUIDforXML()
{
    return NSString::stringWithFormat(u"%@%@", u"X", UUID());
}

QString KTAdditions::stringByStrippingCharactersInSet(const QString &receiver,
                                                      const NSCharacterSet &set)
{
    if (receiver.isNull())
        return {};
    const NSCharacterSet &whitespace = NSCharacterSet::whitespaceAndNewlineCharacterSet();
    QString result = u""_s;
    result.reserve(receiver.size());
    for (qsizetype index = NSSkipCharacters(receiver, 0, whitespace); index < receiver.size();) {
        const qsizetype end = NSFindCharacter(receiver, index, set);
        result += QStringView(receiver).sliced(index, end - index);
        // Deliberate: whitespace is skipped before each step, so that behind a removed run is
        // removed, too.
        index = NSSkipCharacters(receiver, end, whitespace);
        index = NSSkipCharacters(receiver, index, set);
        index = NSSkipCharacters(receiver, index, whitespace);
    }
    return result;
}

QVariant KTAdditions::integerNumberValue(const QString &receiver)
{
    return QVariant(NSString::integerValue(receiver));
}

QVariant KTAdditions::decimalNumberValue(const QString &receiver)
{
    return QVariant::fromValue(NSDecimalNumber::decimalNumberWithString(receiver));
}

QVariant KTAdditions::boolNumberValue(const QString &receiver)
{
    return QVariant(NSString::boolValue(receiver));
}

bool KTAdditions::shouldSearchWithCD(const QString &receiver)
{
    return NSString::canBeConvertedToEncoding(receiver, NSISOLatin1StringEncoding);
}

QString KTAdditions::stringByAppendingToFilename(const QString &receiver, const QString &suffix)
{
    const QString name = NSString::stringByDeletingPathExtension(receiver) + suffix;
    return NSString::stringByAppendingPathExtension(name, NSString::pathExtension(receiver));
}

namespace {
// What file systems allow.
constexpr qsizetype LongestFileName = 255;

bool isTaken(const QString &path)
{
    return NSFileManager::fileExistsAtPath(path) || QFileInfo(path).isSymLink();
}

bool isTooLong(const QString &path)
{
    return NSString::lastPathComponent(path).toUtf8().size() > LongestFileName;
}

/// A path with a suffix before its extension. Characters before the suffix give way to it, and
/// those of the extension where these do not suffice.
QString withSuffixThatFits(const QString &receiver, const QString &suffix)
{
    QString extension = NSString::pathExtension(receiver);
    QString stem = NSString::stringByDeletingPathExtension(receiver);
    const auto path = [&] {
        return NSString::stringByAppendingPathExtension(stem + suffix, extension);
    };
    while (isTooLong(path())) {
        QString &longest = NSString::lastPathComponent(stem).size() > 2 ? stem : extension;
        if (longest.isEmpty())
            break;
        longest.chop(longest.back().isLowSurrogate() ? 2 : 1);
    }
    return path();
}
} // namespace

QString KTAdditions::uniqueFilePathForFilePath(const QString &receiver)
{
    QString path = receiver;
    for (int number = 2; isTaken(path); ++number)
        path = withSuffixThatFits(receiver, NSString::stringWithFormat(u" %d", number));
    return path;
}
