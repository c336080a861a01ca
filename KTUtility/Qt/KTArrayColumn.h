#pragma once

#include "KTBindingOptions.h"
#include <KTUtility/KTUtilityExport.h>
#include <KTUtility/Platform/Keys/NSBoxed.h>
#include <KTUtility/Platform/Numbers/NSFormatter.h>
#include <KTUtility/Platform/Queries/NSSortDescriptor.h>

#include <QMetaType>
#include <QObject>

#include <concepts>
#include <functional>
#include <memory>
#include <optional>
#include <type_traits>

namespace KTPrivate {
/// The class that a pointer to a member points into.
template<typename T>
struct MemberTraits;
template<typename T, std::derived_from<QObject> C>
struct MemberTraits<T C::*>
{
    using Class = C;
};

template<auto Member>
using ClassOfMember = typename MemberTraits<decltype(Member)>::Class;
template<auto Member>
using ValueOfMember =
    std::remove_cvref_t<std::invoke_result_t<decltype(Member), ClassOfMember<Member> &>>;

/// The object of a row; null if it is none.
KTUTILITY_EXPORT QObject *objectOfRow(const QVariant &row);
/// A value as a type; raises if it cannot be converted.
KTUTILITY_EXPORT QVariant valueAs(QMetaType type, const QVariant &value);

template<typename T>
T unboxed(const QVariant &value)
{
    if constexpr (NSDetail::IsOptional<T>::value) {
        if (NSObject::isNil(value))
            return std::nullopt;
        return unboxed<typename T::value_type>(value);
    } else if constexpr (std::same_as<T, QVariant>) {
        return value;
    } else {
        return valueAs(QMetaType::fromType<T>(), value).template value<T>();
    }
}

template<auto Member>
QVariant readMember(const KeyValueTarget &row)
{
    auto *const object = objectAs<ClassOfMember<Member>>(row);
    return object ? NSBoxed(ValueOfMember<Member>(std::invoke(Member, *object))) : QVariant();
}

template<auto Member>
void writeMember(QObject *object, const QVariant &value)
{
    if (auto *const owner = dynamic_cast<ClassOfMember<Member> *>(object))
        owner->*Member = unboxed<ValueOfMember<Member>>(value);
}

/// The argument of a setter.
template<typename T>
struct SetterTraits;
template<typename R, typename C, typename A>
struct SetterTraits<R (C::*)(A)>
{
    using Argument = std::remove_cvref_t<A>;
};
template<typename R, typename C, typename A>
struct SetterTraits<R (C::*)(A) noexcept> : SetterTraits<R (C::*)(A)>
{
};

template<auto Setter>
void callSetter(QObject *object, const QVariant &value)
{
    if (auto *const owner = dynamic_cast<ClassOfMember<Setter> *>(object))
        std::invoke(Setter, *owner,
                    unboxed<typename SetterTraits<decltype(Setter)>::Argument>(value));
}
} // namespace KTPrivate

/// A column of a KTArrayModel: where its values come from, how they are shown, and whether they may
/// be edited.
///
/// By key path, a column can be set at run time and follows every object on the path. By member, a
/// misspelt name does not compile; it follows every NOTIFY signal of the row's object.
///
/// \code
/// const auto money = std::make_shared<KTCurrencyFormatter>();
/// const QList<KTArrayColumn> columns{
///     {u"title"_s, tr("Title")},
///     KTArrayColumn(u"amount"_s, tr("Amount"), money).setEditable(true),
///     KTArrayColumn::of<&Expense::amount>(tr("Amount"), money).setBy<&Expense::setAmount>(),
///     KTArrayColumn(u"isPaid"_s, tr("Paid")).setCheckable(true).setEditable(true)};
/// \endcode
class KTUTILITY_EXPORT KTArrayColumn
{
public:
    /// Says which of two values comes first.
    using Comparator = NSSortDescriptor::Comparator;

    /// The values at a key path of the rows' objects.
    /// \param formatter shows and reads the values; null for texts, numbers and dates as they are.
    KTArrayColumn(const QString &keyPath, const QString &title,
                  std::shared_ptr<const NSFormatter> formatter = {});

    /// The values of a getter or a data member of the rows' objects; nil for objects of other
    /// classes. A data member can be edited once setEditable() says so; for a getter, see setBy().
    template<auto Member>
    static KTArrayColumn of(const QString &title, std::shared_ptr<const NSFormatter> formatter = {})
    {
        KTArrayColumn column(QString(), title, std::move(formatter));
        column._read = KTPrivate::readMember<Member>;
        if constexpr (std::is_member_object_pointer_v<decltype(Member)>)
            column._write = KTPrivate::writeMember<Member>;
        return column;
    }
    /// What sets the value of a column that a getter gives; makes it editable.
    template<auto Setter>
    KTArrayColumn &setBy()
    {
        _write = KTPrivate::callSetter<Setter>;
        return setEditable(true);
    }

    /// Nil for a column by member.
    const QString &keyPath() const { return _keyPath; }
    /// What stands in the header.
    const QString &title() const { return _title; }
    /// What shows and reads the values; null for none.
    const std::shared_ptr<const NSFormatter> &formatter() const { return _formatter; }

    /// Whether the values may be edited; not at first.
    bool isEditable() const { return _isEditable; }
    /// Lets people edit them, or not.
    KTArrayColumn &setEditable(bool editable);
    /// Whether the value is shown by a check box, which sets it if the column is editable.
    bool isCheckable() const { return _isCheckable; }
    KTArrayColumn &setCheckable(bool checkable);
    /// At first numbers and durations stand on the right (on the left where people read from there),
    /// all else on the other side.
    Qt::Alignment alignment() const { return _alignment; }
    KTArrayColumn &setAlignment(Qt::Alignment alignment);
    /// What is shown for nil and markers.
    const KTBindingOptions &placeholders() const { return _placeholders; }
    KTArrayColumn &setPlaceholders(const KTBindingOptions &placeholders);
    /// How a click on the header sorts, by two values of the column: at first texts in the order of
    /// people, all else by NSObject::compare().
    KTArrayColumn &setComparator(const Comparator &comparator);
    /// Whether a click on the header sorts texts in the order of people (see
    /// NSSortDescriptor::localized); it does until a comparator is set.
    KTArrayColumn &setLocalized(bool localized);

    /// How this column sorts.
    NSSortDescriptor sortDescriptor(bool ascending) const;
    /// The value in a row.
    /// \throws NSException NSUndefinedKeyException if an object on the path lacks its key.
    QVariant value(const QVariant &ofRow) const;
    /// Sets the value in a row, after asking its object (see NSKeyValueCoding::validateValue()).
    /// \throws NSException if the object does not take the value; the reason is for people if the
    /// object gave it.
    void setValue(const QVariant &value, const QVariant &inRow) const;

    /// Texts as people sort them (NSString::localizedCompare()), all else as NSObject::compare().
    static std::weak_ordering compareForPeople(const QVariant &left, const QVariant &right);

private:
    QString _keyPath;
    QString _title;
    std::shared_ptr<const NSFormatter> _formatter;
    KTBindingOptions _placeholders;
    Qt::Alignment _alignment;
    Comparator _comparator = NSObject::compare;
    bool _isLocalized = true;
    KTPrivate::MemberReader _read;
    void (*_write)(QObject *object, const QVariant &value) = nullptr;
    bool _isEditable = false;
    bool _isCheckable = false;
};
