#include "FieldSettings.h"

#include "Commands/UserSettings.h"
#include "Fields/FieldReader.h"

#include <KTUtility/KTOptionsKeys>
#include <KTUtility/NSKeyValueCoding>

using namespace Qt::StringLiterals;

Outcome<FieldType> FieldSettings::typeIn(const QString &name)
{
    if (name == FieldTypes::nameOf(FieldType::Text))
        return FieldType::Text;
    if (name == FieldTypes::nameOf(FieldType::Media))
        return FieldType::Media;
    const std::optional<FieldType> type = FieldTypes::typeNamed(name);
    if (type)
        return *type;
    return Failure{u"unknown type '%1'; there are text, media, %2"_s.arg(
        name, FieldTypes::names().join(u", "_s))};
}

Outcome<LibraryField> FieldSettings::fieldIn(const QString &text)
{
    LibraryField field;
    const qsizetype colon = text.lastIndexOf(u':');
    field.header = colon < 0 ? text : text.first(colon);
    if (field.header.trimmed().isEmpty())
        return Failure{u"a field needs a name"_s};
    const Outcome<FieldType> type =
        colon < 0 ? Outcome<FieldType>(FieldType::Text) : typeIn(text.sliced(colon + 1));
    if (!type)
        return type.failure();
    field.type = *type;
    return field;
}

Outcome<> FieldSettings::apply(const QStringList &options, LibraryField *field)
{
    const FieldReader reader(field->type);
    if (!reader.formatter())
        return options.isEmpty() ? Outcome<>() : Failure{u"a field of this type has no options"_s};
    const Outcome<> applied = UserSettings::apply(options, reader.formatter());
    if (!applied)
        return applied;
    for (const QString &option : options) {
        const QString key = option.section(u'=', 0, 0);
        field->options.insert(key, NSKeyValueCoding::valueForKey(reader.formatter(), key));
    }
    if (field->type == FieldType::Currency)
        field->options.insert(kKTFieldOption_currencyType, reader.currencyType());
    return {};
}
