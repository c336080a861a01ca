#include "PropertyListQuickReader_p.h"

#include <QVariantMap>

#include <algorithm>
#include <string_view>

using namespace KTPrivate;

// Manifests and small settings are one dictionary of texts, written in the same few bytes each
// time. They are read here without an XML parser, at a tenth of its cost; anything that looks
// different in any way is left to it, so that the result is always the parser's.

namespace {
class QuickReader
{
public:
    explicit QuickReader(const QByteArray &data) : _rest(data.constData(), size_t(data.size())) {}

    std::optional<QVariantMap> read()
    {
        QVariantMap dictionary;
        bool isRead = skipHead() && skip("<dict>");
        while (isRead && !skip("</dict>"))
            isRead = readEntry(&dictionary);
        if (!isRead || !skip("</plist>"))
            return std::nullopt;
        skipWhitespace();
        return _rest.empty() ? std::optional(dictionary) : std::nullopt;
    }

private:
    void skipWhitespace()
    {
        const size_t next = _rest.find_first_not_of(" \t\n");
        _rest.remove_prefix(std::min(next, _rest.size()));
    }

    /// Whether this text comes next, behind whitespace.
    bool skip(std::string_view text)
    {
        skipWhitespace();
        const bool isNext = _rest.starts_with(text);
        _rest.remove_prefix(isNext ? text.size() : 0);
        return isNext;
    }

    /// The lines that every writer of property lists begins with, byte for byte.
    bool skipHead()
    {
        // Only the very first bytes can be the declaration.
        return _rest.starts_with('<') && skip(R"(<?xml version="1.0" encoding="UTF-8"?>)") &&
               skip(R"(<!DOCTYPE plist PUBLIC "-//Apple//DTD PLIST 1.0//EN" )"
                    R"("http://www.apple.com/DTDs/PropertyList-1.0.dtd">)") &&
               skip(R"(<plist version="1.0">)");
    }

    bool readEntry(QVariantMap *dictionary)
    {
        QString key;
        QString value;
        const bool isRead =
            readText("<key>", "</key>", &key) && readText("<string>", "</string>", &value);
        if (isRead)
            dictionary->insert(key, value);
        return isRead;
    }

    /// Text that stands for itself: printable ASCII without markup.
    bool readText(std::string_view start, std::string_view end, QString *text)
    {
        if (!skip(start))
            return false;
        const auto stop = std::ranges::find_if(_rest, [](char unit) {
            return unit < ' ' || unit > '~' || unit == '<' || unit == '>' || unit == '&';
        });
        const auto length = qsizetype(stop - _rest.begin());
        *text = QString::fromLatin1(_rest.data(), length);
        _rest.remove_prefix(size_t(length));
        // Whitespace before the end would have to be kept.
        const bool isWhole = _rest.starts_with(end);
        _rest.remove_prefix(isWhole ? end.size() : 0);
        return isWhole;
    }

    std::string_view _rest;
};
} // namespace

std::optional<QVariantMap> KTPrivate::readPlainXMLPropertyList(const QByteArray &data)
{
    return QuickReader(data).read();
}
