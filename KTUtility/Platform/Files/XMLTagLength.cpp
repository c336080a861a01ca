#include "XMLTagLength_p.h"

#include <algorithm>

using namespace KTPrivate;

namespace {
/// Goes through an XML text from tag to tag.
class TagScanner
{
public:
    explicit TagScanner(QStringView text) : _text(text) {}

    qsizetype longest()
    {
        qsizetype longest = 0;
        for (_at = next(u'<'); _at < _text.size(); _at = next(u'<')) {
            const qsizetype start = _at;
            if (!skipUnlimited())
                longest = std::max(longest, skipTag() - start);
        }
        return longest;
    }

private:
    qsizetype next(QChar unit) const
    {
        const qsizetype found = _text.indexOf(unit, _at);
        return found < 0 ? _text.size() : found;
    }

    /// Moves behind the end of what begins here.
    /// \return false if it does not begin so.
    bool skip(QStringView start, QStringView end)
    {
        if (!_text.sliced(_at).startsWith(start))
            return false;
        const qsizetype found = _text.indexOf(end, _at + start.size());
        _at = found < 0 ? _text.size() : found + end.size();
        return true;
    }

    /// Moves behind what stands in "<" and ">" and has no attributes.
    bool skipUnlimited()
    {
        return skip(u"<!--", u"-->") || skip(u"<![CDATA[", u"]]>") || skip(u"<?", u"?>");
    }

    /// Moves behind a tag or a declaration, and all that stands in it.
    qsizetype skipTag()
    {
        int depth = 0;
        do {
            skipPiece(&depth);
        } while (depth > 0 && _at < _text.size());
        return _at;
    }

    /// Moves over a quoted text, a comment, or one character; "<" and ">" count.
    void skipPiece(int *depth)
    {
        const QChar unit = _text[_at];
        if (unit == u'"' || unit == u'\'') {
            ++_at;
            _at = std::min(next(unit) + 1, _text.size());
            return;
        }
        if (unit == u'<' && *depth > 0 && skipUnlimited())
            return;
        *depth += unit == u'<' ? 1 : unit == u'>' ? -1 : 0;
        ++_at;
    }

    QStringView _text;
    qsizetype _at = 0;
};
} // namespace

qsizetype KTPrivate::longestXMLTag(QStringView text)
{
    return TagScanner(text).longest();
}
