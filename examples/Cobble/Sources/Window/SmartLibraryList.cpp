#include "SmartLibraryList.h"

#include "Open/OpenBundle.h"
#include "Text/PrintableText.h"

#include <KTUtility/NSAlert>

#include <QInputDialog>
#include <QListWidget>
#include <QMenu>
#include <QPainter>

using namespace Qt::StringLiterals;

namespace {
constexpr int SmartRole = Qt::UserRole + 1;
constexpr int IconSize = 16;

/// A funnel in the colour of texts.
QIcon smartIcon(const QWidget &list)
{
    const qreal ratio = list.devicePixelRatioF();
    QPixmap picture(QSize(IconSize, IconSize) * ratio);
    picture.setDevicePixelRatio(ratio);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(list.palette().color(QPalette::Text), 1.2));
    painter.drawPolygon(QPolygonF({{2, 3}, {14, 3}, {9.5, 8.5}, {9.5, 13}, {6.5, 11}, {6.5, 8.5}}));
    return QIcon::fromTheme(u"folder-saved-search"_s, picture);
}
} // namespace

SmartLibraryList::SmartLibraryList(QListWidget *list, OpenBundle *bundle)
    : _list(list), _bundle(bundle)
{
    list->setContextMenuPolicy(Qt::CustomContextMenu);
    QObject::connect(list, &QListWidget::customContextMenuRequested, this,
                     &SmartLibraryList::showMenu);
}

void SmartLibraryList::addToList()
{
    const QString current = this->current() ? this->current()->name : QString();
    const QSignalBlocker blocker(_list);
    for (int row = _list->count() - 1; row >= 0; --row) {
        if (of(_list->item(row)))
            delete _list->takeItem(row);
    }
    _all.clear();
    if (!_bundle->store())
        return;
    const auto all = SmartLibraries::all(*_bundle->store());
    _all = all.valueOr({});
    for (const SmartLibrary &smart : std::as_const(_all))
        add(smart);
    if (!all)
        Q_EMIT failed(all.reason());
    if (!current.isNull())
        select(current);
}

/// Below its library, and the ones of that library that are there already.
void SmartLibraryList::add(const SmartLibrary &smart)
{
    const auto library = SmartLibraries::libraryOf(smart, _bundle->libraries());
    if (!library)
        return;
    int row = 0;
    while (row < _list->count() && _list->item(row)->data(Qt::UserRole).toString() != library->name)
        ++row;
    while (row + 1 < _list->count() && of(_list->item(row + 1)))
        ++row;
    auto *const item =
        new QListWidgetItem(smartIcon(*_list), u"    "_s + printableText(smart.name));
    item->setData(SmartRole, smart.name);
    item->setToolTip(tr("Some records of %1").arg(printableText(library->name)));
    item->setData(Qt::AccessibleTextRole, printableText(smart.name));
    _list->insertItem(row + 1, item);
}

std::optional<SmartLibrary> SmartLibraryList::of(const QListWidgetItem *item) const
{
    const QString name = item ? item->data(SmartRole).toString() : QString();
    const auto found = std::find_if(_all.begin(), _all.end(),
                                    [&](const SmartLibrary &each) { return each.name == name; });
    return name.isEmpty() || found == _all.end() ? std::nullopt : std::optional(*found);
}

std::optional<SmartLibrary> SmartLibraryList::current() const
{
    return of(_list->currentItem());
}

void SmartLibraryList::select(const QString &name)
{
    const QSignalBlocker blocker(_list);
    for (int row = 0; row < _list->count(); ++row) {
        if (_list->item(row)->data(SmartRole).toString() == name)
            _list->setCurrentRow(row);
    }
}

// --- Changes ------------------------------------------------------------------------------------

Outcome<> SmartLibraryList::change(const std::function<Outcome<>(LibraryStore &store)> &changes)
{
    const Outcome<> changed = _bundle->changeWithoutStep(changes);
    if (!changed)
        Q_EMIT failed(changed.reason());
    else
        Q_EMIT _bundle->smartLibrariesChanged();
    return changed;
}

Outcome<> SmartLibraryList::save(const SmartLibrary &smart)
{
    const Outcome<> done =
        change([&](LibraryStore &store) { return SmartLibraries::save(store, smart); });
    if (done)
        Q_EMIT saved(smart.name);
    return done;
}

Outcome<> SmartLibraryList::rename(const QString &name, const QString &newName)
{
    const bool isCurrent = current() && current()->name == name;
    const Outcome<> done =
        change([&](LibraryStore &store) { return SmartLibraries::rename(store, name, newName); });
    if (done && isCurrent)
        select(newName);
    return done;
}

Outcome<> SmartLibraryList::remove(const QString &name)
{
    return change([&](LibraryStore &store) { return SmartLibraries::remove(store, name); });
}

void SmartLibraryList::ask(const QString &title, const QString &name,
                           const std::function<void(const QString &)> &take)
{
    auto *const dialog = new QInputDialog(_list->window());
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->setWindowTitle(title);
    dialog->setLabelText(tr("Name:"));
    dialog->setTextValue(name);
    dialog->setOkButtonText(tr("OK"));
    dialog->setCancelButtonText(tr("Cancel"));
    dialog->setWindowModality(Qt::WindowModal);
    QObject::connect(dialog, &QInputDialog::textValueSelected, this,
                     [take](const QString &text) { take(text.trimmed()); });
    dialog->open();
}

void SmartLibraryList::askAndSave(const Library &library, const RecordQuery &query)
{
    ask(tr("Save as Smart Library"), {}, [this, library, query](const QString &name) {
        (void)save(SmartLibraries::make(name, library, query, FilterFields(library)));
    });
}

void SmartLibraryList::showMenu(const QPoint &place)
{
    const std::optional<SmartLibrary> smart = of(_list->itemAt(place));
    auto *const menu = new QMenu(_list);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    if (smart)
        addActions(*smart, menu);
    else
        menu->addActions(_list->actions());
    menu->popup(_list->viewport()->mapToGlobal(place));
}

void SmartLibraryList::addActions(const SmartLibrary &smart, QMenu *menu)
{
    menu->addAction(tr("Rename…"), this, [this, name = smart.name] {
        ask(tr("Rename Smart Library"), name,
            [this, name](const QString &newName) { (void)rename(name, newName); });
    });
    menu->addAction(tr("Remove…"), this, [this, name = smart.name] { askAndRemove(name); });
}

/// Its filter is in no step that could be undone.
void SmartLibraryList::askAndRemove(const QString &name)
{
    auto *const alert =
        new NSAlert(tr("Remove the smart library “%1”?").arg(printableText(name)), tr("Remove"),
                    tr("Cancel"), QString(), tr("Its records stay. This cannot be undone."));
    alert->beginSheetModalForWindow(_list->window(), this, [this, name](NSAlert *, int returnCode) {
        if (returnCode == NSAlertDefaultReturn)
            (void)remove(name);
    });
}
