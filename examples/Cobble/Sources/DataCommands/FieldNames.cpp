#include "FieldNames.h"

#include "Commands/LibraryJSON.h"

using namespace Qt::StringLiterals;

qsizetype FieldNames::indexOf(const Library &library, const QString &name)
{
    const QStringList names = LibraryJSON::namesOf(library);
    const qsizetype exact = names.indexOf(name);
    if (exact >= 0)
        return exact;
    for (qsizetype index = 0; index < names.size(); ++index) {
        if (names.at(index).compare(name, Qt::CaseInsensitive) == 0)
            return index;
    }
    for (qsizetype index = 0; index < library.fields.size(); ++index) {
        if (library.fields.at(index).columnName == name)
            return index;
    }
    return -1;
}

FieldNames::Assignment FieldNames::assignmentIn(const Library &library, const QString &text)
{
    for (qsizetype sign = text.lastIndexOf(u'='); sign >= 0;
         sign = sign > 0 ? text.lastIndexOf(u'=', sign - 1) : -1) {
        const qsizetype field = indexOf(library, text.first(sign));
        if (field >= 0)
            return {field, text.first(sign), text.sliced(sign + 1)};
    }
    return {-1, text.section(u'=', 0, 0), {}};
}
