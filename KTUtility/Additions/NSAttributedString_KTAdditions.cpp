#include "NSAttributedString_KTAdditions.h"

#include <KTUtility/Platform/Values/NSScanner.h>
#include <KTUtility/Platform/Values/NSStringFormat.h>

NSAttributedString KTAdditions::attributedStringWithString(const QString &string)
{
    return NSAttributedString(string);
}

std::strong_ordering KTAdditions::compare(const NSAttributedString &receiver,
                                          const NSAttributedString &other)
{
    return QString::compare(receiver.string(), other.string()) <=> 0;
}

std::optional<NSURL> KTURLTextAdditions::_findURLInString(const QString &string)
{
    if (string.contains(u"://"))
        return NSURL::URLWithString(string);
    if (string.contains(u"www."))
        return NSURL::URLWithString(NSString::stringWithFormat(u"http://%@", string));
    return std::nullopt;
}

void KTURLTextAdditions::detectURLs(NSAttributedString &receiver)
{
    const NSCharacterSet &whitespace = NSCharacterSet::whitespaceAndNewlineCharacterSet();
    NSScanner scanner(receiver.string());
    QString word;
    while (scanner.scanUpToCharactersFromSet(whitespace, &word)) {
        if (const auto url = _findURLInString(word))
            receiver.addAttribute(NSLinkAttributeName, url->absoluteString(),
                                  {scanner.scanLocation() - word.size(), word.size()});
    }
}
