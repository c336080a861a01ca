#pragma once

#include <KTUtility/KTUtilityExport.h>

#include <QByteArray>
#include <QString>

#include <string_view>

/// The name of a method in text form: keywords, each with a colon for its parameter
/// ("isBiggerThan:", "accept:over:"), or a name without colons.
///
/// With colons, their number is the number of parameters, and the method's name is the text before
/// the first. Without, the method without parameters of that name is meant, else the one with the
/// most parameters for which there are arguments: in C++ a name has no colons to count.
class KTUTILITY_EXPORT NSSelector
{
public:
    NSSelector() = default;
    /// A selector as the platform writes it ("setName:") or the bare name of a method ("name").
    NSSelector(const char *text) : NSSelector(QByteArray(text)) {}
    NSSelector(const QByteArray &text);
    NSSelector(const QString &text) : NSSelector(text.toUtf8()) {}

    /// The text that the selector was made from.
    QString text() const { return QString::fromUtf8(_text); }
    /// The method's name: the text before the first colon.
    const QByteArray &name() const { return _name; }
    /// The number of colons; 0 leaves the number of parameters open.
    int colons() const { return _colons; }
    /// Whether it names nothing.
    bool isNull() const { return _text.isEmpty(); }

    /// Whether both are written alike.
    friend bool operator==(const NSSelector &left, const NSSelector &right)
    {
        return left._text == right._text;
    }

private:
    QByteArray _text;
    QByteArray _name;
    int _colons = 0;
};
