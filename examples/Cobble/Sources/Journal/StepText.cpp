#include "StepText.h"

#include "Appearance/Counts.h"
#include "Text/PrintableText.h"

#include <QHash>

#include <functional>

namespace {
/// A name, as short as a menu needs it.
QString nameIn(const StepTitle &title, const QString &parameter)
{
    constexpr qsizetype Longest = 40;
    const QString name = printableText(title.parameters.value(parameter).toString());
    return name.size() > Longest ? QString(name.first(Longest - 1) + u'…') : name;
}

int countIn(const StepTitle &title)
{
    return int(qBound(qint64(1), title.parameters.value(StepParameters::Count, 1).toLongLong(),
                      qint64(1'000'000'000)));
}
} // namespace

QString StepText::of(const StepTitle &title)
{
    const int count = countIn(title);
    const QString field = nameIn(title, StepParameters::Field);
    const QString library = nameIn(title, StepParameters::Library);
    const QHash<QString, std::function<QString()>> texts = {
        {StepKinds::Edit,
         [&] { return field.isEmpty() ? tr("Change") : tr("Change of “%1”").arg(field); }},
        {StepKinds::Insert,
         [&] { return tr("New %1 Record(s)", nullptr, count).arg(Counts::number(count)); }},
        {StepKinds::Duplicate,
         [&] { return tr("Duplicate %1 Record(s)", nullptr, count).arg(Counts::number(count)); }},
        {StepKinds::Delete,
         [&] { return tr("Delete %1 Record(s)", nullptr, count).arg(Counts::number(count)); }},
        {StepKinds::Paste, [] { return tr("Paste"); }},
        {StepKinds::Fill, [] { return tr("Fill Down"); }},
        {StepKinds::Replace, [] { return tr("Replace"); }},
        {StepKinds::Import, [&] { return tr("Import of “%1”").arg(library); }},
        {StepKinds::NewLibrary, [&] { return tr("New Library “%1”").arg(library); }},
        {StepKinds::RenameLibrary, [&] { return tr("Rename Library “%1”").arg(library); }},
        {StepKinds::RemoveLibrary, [&] { return tr("Remove Library “%1”").arg(library); }},
        {StepKinds::AddField, [&] { return tr("New Field “%1”").arg(field); }},
        {StepKinds::RenameField, [&] { return tr("Rename Field “%1”").arg(field); }},
        {StepKinds::MoveField, [&] { return tr("Move Field “%1”").arg(field); }},
        {StepKinds::ChangeType, [&] { return tr("Change Type of “%1”").arg(field); }},
        {StepKinds::ChangeOptions, [&] { return tr("Change Format of “%1”").arg(field); }},
        {StepKinds::RemoveField, [&] { return tr("Remove Field “%1”").arg(field); }},
        {StepKinds::ChangeFields, [&] { return tr("Change Fields of “%1”").arg(library); }},
    };
    const auto text = texts.constFind(title.kind);
    return text == texts.constEnd() ? tr("Change") : (*text)();
}
