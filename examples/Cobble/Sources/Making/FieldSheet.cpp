#include "FieldSheet.h"

#include "Appearance/ListNames.h"
#include "Appearance/ProblemLabel.h"
#include "Appearance/Sentence.h"
#include "FieldChanges.h"
#include "FieldListModel.h"
#include "FieldNameDelegate.h"
#include "FieldOptionsEditor.h"
#include "Fields/FieldTypeTitles.h"
#include "Text/PrintableText.h"

#include <QComboBox>
#include <QDialogButtonBox>
#include <QGuiApplication>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QShortcut>
#include <QTableView>
#include <QTreeWidget>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {
void addKey(const QKeySequence &keys, QWidget *widget, Qt::ShortcutContext context,
            const std::function<void()> &command)
{
    auto *const shortcut = new QShortcut(keys, widget);
    shortcut->setContext(context);
    QObject::connect(shortcut, &QShortcut::activated, widget, command);
}

void addChange(QTreeWidget *tree, const FieldChanges::Change &change)
{
    auto *const item = new QTreeWidgetItem(tree, QStringList(change.text));
    item->setFirstColumnSpanned(true);
    item->setToolTip(0, change.text);
    for (const FieldChanges::Value &value : change.values) {
        auto *const below = new QTreeWidgetItem(item, QStringList{value.text, value.reason});
        below->setToolTip(0, value.text);
        below->setToolTip(1, value.reason);
    }
}
} // namespace

FieldSheet::FieldSheet(QWidget *window, const KTDatabaseBundle &bundle, const Library &library,
                       const Make &make)
    : QDialog(window)
    , _make(make)
    , _model(std::make_unique<FieldListModel>(library))
    , _previewer(bundle)
{
    setWindowTitle(tr("Fields of “%1”").arg(printableText(library.name)));
    setWindowModality(Qt::WindowModal);
    setAttribute(Qt::WA_DeleteOnClose);
    addParts();
    ListNames::give(this);
    select(0);
    planChanged();
    _list->setFocus();
}

FieldSheet::~FieldSheet()
{
    // Before the model that it shows.
    delete _list;
}

const FieldPlan &FieldSheet::plan() const
{
    return _model->plan();
}

bool FieldSheet::isLooking() const
{
    return !_previewer.preview() && _previewer.reason().isNull();
}

QString FieldSheet::problem() const
{
    return _problem->text();
}

// --- Parts --------------------------------------------------------------------------------------

void FieldSheet::addParts()
{
    auto *const layout = new QVBoxLayout(this);
    for (QWidget *const part : {makeListPart(), makeForm(), makePreview(), makeEnd()})
        layout->addWidget(part);
    layout->setStretch(0, 3);
    layout->setStretch(2, 2);
    // A button is one of a dialog once it is in it.
    _change->setDefault(true);
    addKeys();
    connectParts();
    connectForm();
    resize(720, 600);
}

/// The list with the buttons for it beside it.
QWidget *FieldSheet::makeListPart()
{
    auto *const part = new QWidget;
    auto *const layout = new QHBoxLayout(part);
    layout->setContentsMargins(0, 0, 0, 0);
    makeList();
    layout->addWidget(_list, 1);
    layout->addWidget(makeButtons());
    return part;
}

void FieldSheet::makeList()
{
    _list = new QTableView;
    _list->setObjectName(u"fieldList"_s);
    _list->setAccessibleName(tr("Fields"));
    _list->setModel(_model.get());
    _list->setItemDelegate(new FieldNameDelegate(_list));
    _list->setSelectionBehavior(QAbstractItemView::SelectRows);
    _list->setSelectionMode(QAbstractItemView::SingleSelection);
    _list->setEditTriggers(QAbstractItemView::DoubleClicked);
    _list->setTabKeyNavigation(false);
    _list->setWordWrap(false);
    setUpHeaders();
}

void FieldSheet::setUpHeaders()
{
    _list->verticalHeader()->hide();
    _list->verticalHeader()->setDefaultSectionSize(_list->fontMetrics().height() + 8);
    _list->horizontalHeader()->setHighlightSections(false);
    _list->horizontalHeader()->setSectionResizeMode(FieldListModel::Name, QHeaderView::Stretch);
}

QWidget *FieldSheet::makeButtons()
{
    auto *const part = new QWidget;
    auto *const layout = new QVBoxLayout(part);
    layout->setContentsMargins(0, 0, 0, 0);
    addButton(layout, tr("&Add"), &FieldSheet::addField);
    _remove = addButton(layout, tr("&Remove"), &FieldSheet::removeField);
    _rename = addButton(layout, tr("Re&name"), &FieldSheet::renameField);
    _up = addButton(layout, tr("Move &Up"), &FieldSheet::moveUp);
    _down = addButton(layout, tr("Move &Down"), &FieldSheet::moveDown);
    layout->addStretch();
    return part;
}

QPushButton *FieldSheet::addButton(QVBoxLayout *layout, const QString &title,
                                   void (FieldSheet::*command)())
{
    auto *const button = new QPushButton(title);
    button->setAutoDefault(false);
    QObject::connect(button, &QPushButton::clicked, this, command);
    layout->addWidget(button);
    return button;
}

/// The type and the settings of the field that is selected.
QWidget *FieldSheet::makeForm()
{
    _type = new QComboBox;
    _type->setObjectName(u"typeBox"_s);
    _type->setAccessibleName(tr("Type"));
    for (const FieldType type : FieldTypeTitles::types())
        _type->addItem(FieldTypeTitles::titleOf(type), int(type));
    _options = new FieldOptionsEditor(tr("&Type:"), _type);
    return _options;
}

QWidget *FieldSheet::makePreview()
{
    auto *const part = new QWidget;
    auto *const layout = new QVBoxLayout(part);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(_state = new QLabel);
    _state->setTextFormat(Qt::PlainText);
    _changes = new QTreeWidget;
    _changes->setObjectName(u"changesTree"_s);
    _changes->setAccessibleName(tr("What changes"));
    _changes->setHeaderLabels({tr("What changes"), tr("Why")});
    _changes->setColumnWidth(0, 280);
    layout->addWidget(_changes);
    return part;
}

QWidget *FieldSheet::makeEnd()
{
    auto *const part = new QWidget;
    auto *const layout = new QVBoxLayout(part);
    layout->setContentsMargins(0, 0, 0, 0);
    _problem = new ProblemLabel;
    _problem->setObjectName(u"problemLabel"_s);
    auto *const buttons = new QDialogButtonBox(QDialogButtonBox::Cancel);
    _change = buttons->addButton(tr("C&hange Fields"), QDialogButtonBox::AcceptRole);
    QObject::connect(buttons, &QDialogButtonBox::accepted, this, &FieldSheet::accept);
    QObject::connect(buttons, &QDialogButtonBox::rejected, this, &FieldSheet::reject);
    layout->addWidget(_problem);
    layout->addWidget(buttons);
    return part;
}

void FieldSheet::addKeys()
{
    // Elsewhere, Alt and the arrows open lists.
    const auto inNames = Qt::WidgetWithChildrenShortcut;
    addKey(QKeySequence(u"Alt+Up"_s), _list, inNames, [this] { moveUp(); });
    addKey(QKeySequence(u"Alt+Down"_s), _list, inNames, [this] { moveDown(); });
    addKey(QKeySequence(Qt::Key_F2), _list, Qt::WidgetShortcut, [this] { renameField(); });
    addKey(QKeySequence(Qt::Key_Delete), _list, Qt::WidgetShortcut, [this] { removeField(); });
}

void FieldSheet::connectParts()
{
    QObject::connect(_list->selectionModel(), &QItemSelectionModel::currentRowChanged, this,
                     &FieldSheet::showField);
    QObject::connect(_model.get(), &FieldListModel::planChanged, this, &FieldSheet::planChanged);
    QObject::connect(&_previewer, &FieldPreviewer::changed, this, &FieldSheet::showChanges);
}

/// The form shows the field that is selected.
void FieldSheet::connectForm()
{
    QObject::connect(_type, &QComboBox::activated, this, [this] {
        if (row() >= 0)
            _model->setType(row(), FieldType(_type->currentData().toInt()));
    });
    QObject::connect(_options, &FieldOptionsEditor::changed, this,
                     [this](const QVariantMap &options) {
                         if (row() >= 0)
                             _model->setOptions(row(), options);
                     });
}

// --- What the buttons do ------------------------------------------------------------------------

int FieldSheet::row() const
{
    return _list->currentIndex().row();
}

void FieldSheet::select(int row)
{
    const int last = _model->rowCount() - 1;
    _list->setCurrentIndex(_model->index(qMin(row, last), FieldListModel::Name));
}

/// A name that is being typed counts.
void FieldSheet::commitName()
{
    if (_list->isAncestorOf(focusWidget()))
        _list->setFocus();
}

void FieldSheet::addField()
{
    commitName();
    _model->add();
    select(_model->rowCount() - 1);
    renameField();
}

void FieldSheet::removeField()
{
    commitName();
    const int removed = row();
    if (removed < 0 || _model->rowCount() < 2)
        return;
    _model->remove(removed);
    select(removed);
}

void FieldSheet::renameField()
{
    const QModelIndex name = _model->index(row(), FieldListModel::Name);
    if (!name.isValid())
        return;
    _list->setFocus();
    _list->setCurrentIndex(name);
    _list->edit(name);
}

void FieldSheet::moveUp()
{
    moveBy(-1);
}

void FieldSheet::moveDown()
{
    moveBy(1);
}

void FieldSheet::moveBy(int distance)
{
    commitName();
    const int to = row() + distance;
    if (row() < 0 || to < 0 || to >= _model->rowCount())
        return;
    _model->move(row(), to);
    _list->scrollTo(_list->currentIndex());
}

// --- What is shown ------------------------------------------------------------------------------

void FieldSheet::planChanged()
{
    showProblem(QString());
    showField();
    _previewer.look(plan());
    showChanges();
}

/// The field that is selected.
void FieldSheet::showField()
{
    const int shown = row();
    const bool isThere = shown >= 0 && shown < _model->rowCount();
    for (QWidget *const part : QList<QWidget *>{_rename, _options})
        part->setEnabled(isThere);
    _remove->setEnabled(isThere && _model->rowCount() > 1);
    _up->setEnabled(shown > 0);
    _down->setEnabled(isThere && shown < _model->rowCount() - 1);
    if (!isThere)
        return;
    const LibraryField &field = _model->fieldAt(shown).field;
    _type->setCurrentIndex(_type->findData(int(field.type)));
    _options->setField(field);
}

void FieldSheet::showChanges()
{
    _changes->clear();
    const QList<FieldChanges::Change> changes = FieldChanges::of(plan(), _previewer.preview());
    for (const FieldChanges::Change &change : changes)
        addChange(_changes, change);
    _changes->expandAll();
    showState();
}

void FieldSheet::showState()
{
    const bool isPlanned = !plan().isEmpty();
    _state->setText(isLooking() ? tr("Looking at the values…")
                    : isPlanned ? tr("Nothing is stored yet. These will be the changes:")
                                : tr("Nothing is changed yet."));
    _change->setEnabled(isPlanned && _previewer.preview());
    if (const QString reason = reasonAgainst(); !reason.isNull())
        showProblem(reason);
}

/// Why it cannot be done as it is; nil if it can.
QString FieldSheet::reasonAgainst() const
{
    const Outcome<> checked = plan().check();
    return checked ? _previewer.reason() : checked.reason();
}

void FieldSheet::showProblem(const QString &reason)
{
    _problem->setText(Sentence::of(reason));
    _problem->setVisible(!reason.isEmpty());
    _list->setAccessibleDescription(_problem->text());
}

// --- Its end ------------------------------------------------------------------------------------

/// What was seen may become empty, and no more.
FieldPlan FieldSheet::confirmed() const
{
    FieldPlan confirmed = plan();
    const auto &converted = _previewer.preview()->converted;
    for (auto each = converted.begin(); each != converted.end(); ++each)
        confirmed.setEmptied(each.key(), each.value().unreadCount);
    return confirmed;
}

bool FieldSheet::goToWrongTitle()
{
    for (int place = 0; place < _model->rowCount(); ++place) {
        const Outcome<> checked = plan().checkTitle(place);
        if (checked)
            continue;
        select(place);
        _list->setFocus();
        showProblem(checked.reason());
        return true;
    }
    return false;
}

/// Values may take a while.
Outcome<> FieldSheet::make() const
{
    QGuiApplication::setOverrideCursor(Qt::WaitCursor);
    const Outcome<> made = _make(confirmed());
    QGuiApplication::restoreOverrideCursor();
    return made;
}

void FieldSheet::accept()
{
    commitName();
    if (plan().isEmpty() || !_previewer.preview() || goToWrongTitle())
        return;
    const Outcome<> made = make();
    if (made) {
        QDialog::accept();
        return;
    }
    // Another program may have changed the values, too.
    _previewer.lookAgain(plan());
    showChanges();
    showProblem(made.reason());
}
