#pragma once

#include <KTUtility/KTUtilityExport.h>

#include <QMetaType>
#include <QString>
#include <QStringList>
#include <QVariant>

#include <functional>
#include <memory>

/// Turns values of one kind into values of another, for bindings between records and views.
///
/// Transformers whose allowsReverseTransformation() is true also turn the result back. What cannot
/// be transformed gives nil. Bindings find a transformer as an object in their options, or by a
/// name; see NSValueTransformerBindingOption.
///
/// \code
/// class YesNoTransformer : public NSValueTransformer { … };
///
/// NSValueTransformer::setValueTransformer(std::make_shared<YesNoTransformer>(),
///                                         u"YesNo"_s);
/// NSValueTransformer::valueTransformerForName(u"YesNo"_s)->transformedValue(true);
/// \endcode
class KTUTILITY_EXPORT NSValueTransformer
{
public:
    NSValueTransformer() = default;
    virtual ~NSValueTransformer();
    NSValueTransformer(const NSValueTransformer &) = delete;
    NSValueTransformer &operator=(const NSValueTransformer &) = delete;

    /// The type of the values that transformedValue() gives; invalid if it may be any.
    virtual QMetaType transformedValueClass() const = 0;
    /// Whether reverseTransformedValue() is meant to be called.
    virtual bool allowsReverseTransformation() const = 0;
    /// The value for the view.
    virtual QVariant transformedValue(const QVariant &value) const = 0;
    /// The value for the record. The base class knows no way back and gives nil.
    virtual QVariant reverseTransformedValue(const QVariant &value) const;

    // --- Transformers by name; for the main thread

    /// Registers a transformer under a name, in place of another; null takes it away.
    static void setValueTransformer(const std::shared_ptr<NSValueTransformer> &transformer,
                                    const QString &forName);
    /// The transformer registered under a name. If there is none, but a class of that name was
    /// registered, a new one of that class, which is the one of that name from then on.
    /// \return null if there is neither.
    static std::shared_ptr<NSValueTransformer> valueTransformerForName(const QString &name);
    /// The names under which transformers are registered, sorted.
    static QStringList valueTransformerNames();

    /// Makes a class of transformers known by name; see KT_REGISTER_VALUE_TRANSFORMER.
    static void registerClass(const QString &name,
                              const std::function<std::shared_ptr<NSValueTransformer>()> &make);
    /// The same, and has a variant that holds a pointer to the very class understood where a
    /// transformer is wanted.
    template<typename Class>
    static void registerClass(const QString &name)
    {
        using Given = std::shared_ptr<Class>;
        using Wanted = std::shared_ptr<NSValueTransformer>;
        if (!QMetaType::hasRegisteredConverterFunction<Given, Wanted>())
            QMetaType::registerConverter<Given, Wanted>();
        registerClass(name, [] { return std::make_shared<Class>(); });
    }
};

/// A transformer in a variant, as the options of bindings hold it.
Q_DECLARE_METATYPE(std::shared_ptr<NSValueTransformer>)

/// Makes a class of transformers known by name, so that
/// NSValueTransformer::valueTransformerForName() finds it, and its objects known as transformers
/// where they stand in a variant as std::shared_ptr<ClassName>. Write it once, in a source file,
/// outside of functions; the class has a constructor without arguments.
#define KT_REGISTER_VALUE_TRANSFORMER(ClassName)                                                   \
    namespace {                                                                                    \
    [[maybe_unused]] const bool is##ClassName##Registered = [] {                                   \
        NSValueTransformer::registerClass<ClassName>(QStringLiteral(#ClassName));                  \
        return true;                                                                               \
    }();                                                                                           \
    }
