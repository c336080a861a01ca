#include "FieldTitle.h"

using namespace Qt::StringLiterals;

namespace {
constexpr QStringView MarksAtEnd = u"?!:.…？！：。";
} // namespace

QString FieldTitle::of(const LibraryField &field)
{
    const bool isTitled = !field.header.trimmed().isEmpty() || !field.label.trimmed().isEmpty();
    return isTitled ? field.title() : tr("Untitled");
}

QString FieldTitle::label(const QString &title)
{
    const QString text = QString(title).replace(u'&', u"&&"_s);
    const QString trimmed = text.trimmed();
    return !trimmed.isEmpty() && MarksAtEnd.contains(trimmed.back()) ? text : tr("%1:").arg(text);
}
