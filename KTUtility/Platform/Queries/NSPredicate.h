#pragma once

#include <KTUtility/KTUtilityExport.h>
#include <KTUtility/Platform/Keys/KeyValueTarget.h>
#include <KTUtility/Platform/Keys/MemberReader.h>

#include <QString>
#include <QVariantList>

#include <concepts>
#include <functional>

/// A condition that objects fulfil or not: a function, or a comparison of what lies at key paths.
///
/// A format compares two operands, and joins comparisons with AND, OR, NOT and parentheses (also
/// &&,
/// ||, !). Words are not case-sensitive.
///
/// | operators | |
/// |---|---|
/// | = == != <> < <= > >= | numbers by value, texts by UTF-16 unit, dates |
/// | BEGINSWITH ENDSWITH CONTAINS | texts; CONTAINS also lists |
/// | LIKE | texts; "?" is any character, "*" any number of them |
/// | MATCHES | the whole of a text against a regular expression; false where that takes too long |
/// | IN | an element of a list, or a part of a text |
///
/// Behind an operator for texts, [c] ignores case, [d] diacritics, [cd] both. Operands are key
/// paths, SELF, texts in single or double quotes (with "\" before quotes and "\" in them), numbers,
/// TRUE, FALSE, YES, NO, nil, NULL; "%@" stands for the next argument, "%K" for a key path that is
/// one. TRUEPREDICATE and FALSEPREDICATE are conditions. Nil equals nil only, and is in no order.
///
/// \code
/// const NSPredicate grownUps =
///     NSPredicate::predicateWithFormat(u"age >= %@ AND name BEGINSWITH[c] 'a'", {18});
/// grownUps.evaluateWithObject(person);
/// \endcode
class KTUTILITY_EXPORT NSPredicate
{
public:
    /// A condition as a function.
    using Block = std::function<bool(const QVariant &object)>;

    /// No condition, which nothing fulfils; see isNil().
    NSPredicate() = default;
    /// The condition of a function.
    static NSPredicate predicateWithBlock(Block block);
    /// The condition of a getter, a data member, or a lambda that takes an object of a class: a
    /// misspelt name does not compile. Objects of other classes do not fulfil it.
    /// \code
    /// NSPredicate::where(&Expense::isPaid)
    /// NSPredicate::where([](const Expense &each) { return each.count() > 2; })
    /// \endcode
    template<KTPrivate::Readable T>
        requires std::convertible_to < KTPrivate::ReadValue<T>,
    bool > static NSPredicate where(T member)
    {
        return predicateWithBlock([member](const QVariant &each) {
            using Class = typename KTPrivate::ReadClass<T>::Type;
            auto *const object =
                KTPrivate::objectAs<Class>(KTPrivate::KeyValueTarget::ofVariant(each));
            return object && static_cast<bool>(KTPrivate::readFrom(member, *object));
        });
    }
    /// The condition that a format says.
    /// \throws NSException NSInvalidArgumentException if it is none, or an argument is missing.
    static NSPredicate predicateWithFormat(QStringView format, const QVariantList &arguments = {});
    /// What everything fulfils, or nothing.
    static NSPredicate predicateWithValue(bool value);

    /// Whether there is no condition.
    bool isNil() const { return !_block; }

    /// Whether an object fulfils the condition.
    /// \throws NSException NSUndefinedKeyException if it lacks a key.
    bool evaluateWithObject(const QVariant &object) const { return _block && _block(object); }
    bool evaluateWithObject(QObject *object) const
    {
        return evaluateWithObject(QVariant::fromValue(object));
    }

    /// The elements of a list that fulfil the condition, in their order.
    /// \code
    /// const QList<Expense *> paid = NSPredicate::where(&Expense::isPaid).filtered(expenses);
    /// \endcode
    template<KTPrivate::KeyValueCodable T>
    QList<T> filtered(const QList<T> &list) const
    {
        QList<T> elements;
        for (const T &element : list) {
            if (evaluateWithObject(NSBoxed(element)))
                elements += element;
        }
        return elements;
    }

private:
    explicit NSPredicate(Block block) : _block(std::move(block)) {}

    Block _block;
};
