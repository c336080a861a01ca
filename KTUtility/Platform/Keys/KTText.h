#pragma once

#include <QAnyStringView>
#include <QString>

#include <concepts>

/// A text as an argument, such as a key or a name: functions that take one take a QString without
/// copying it, literals of every kind (u"name", "name"), views and standard strings. Only for
/// parameters: it refers to what it was made from.
///
/// \code
/// KTAdditions::sortByKey(fields, u"name");
/// KTAdditions::sortByKey(fields, QStringView(path).mid(7));
/// \endcode
class KTText
{
public:
    /// nil.
    KTText() = default;
    KTText(const QString &text) : _text(&text) {}
    template<typename T>
        requires(!std::same_as<T, QString> && !std::same_as<T, KTText> &&
                 (std::convertible_to<const T &, QString> ||
                  std::convertible_to<const T &, QAnyStringView>))
    KTText(const T &text) : _own(made(text)) {}
    KTText(const KTText &) = delete;
    KTText &operator=(const KTText &) = delete;

    /// The same as string().
    operator const QString &() const { return *_text; }
    /// The text; it lives as long as what this was made from.
    const QString &string() const { return *_text; }
    /// Whether it is nil; an empty text is not.
    bool isNull() const { return _text->isNull(); }

private:
    template<typename T>
    static QString made(const T &text)
    {
        if constexpr (std::convertible_to<const T &, QAnyStringView>)
            return QAnyStringView(text).toString();
        else
            return QString(text);
    }

    QString _own;
    const QString *_text = &_own;
};
