#include "PasteProblems.h"

#include "Appearance/Counts.h"
#include "Text/PrintableText.h"

#include <QDialogButtonBox>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QTableWidget>
#include <QVBoxLayout>

namespace {
/// Longer texts are cut in the list.
constexpr qsizetype LongestText = 200;

QStringList textsOf(const PastePlan::Problem &problem)
{
    return {Counts::number(problem.row), printableText(problem.field.left(LongestText)),
            printableText(problem.text.left(LongestText)), problem.reason};
}
} // namespace

PasteProblems::PasteProblems(QWidget *window, const QList<PastePlan::Problem> &problems)
    : QDialog(window)
{
    setAttribute(Qt::WA_DeleteOnClose);
    setWindowModality(Qt::WindowModal);
    setWindowTitle(tr("Paste"));
    auto *const title = new QLabel(tr("%1 value(s) cannot be pasted. Nothing was stored yet.",
                                      nullptr, Counts::plural(problems.size()))
                                       .arg(Counts::number(problems.size())));
    title->setTextFormat(Qt::PlainText);
    title->setWordWrap(true);
    auto *const layout = new QVBoxLayout(this);
    layout->addWidget(title);
    layout->addWidget(makeTable(problems));
    if (problems.size() > MostListed)
        layout->addWidget(
            new QLabel(tr("These are the first %1.").arg(Counts::number(MostListed))));
    addButtons();
    resize(560, 320);
}

QTableWidget *PasteProblems::makeTable(const QList<PastePlan::Problem> &problems)
{
    const qsizetype count = qMin(problems.size(), MostListed);
    auto *const table = new QTableWidget(int(count), 4);
    table->setAccessibleName(tr("Values that cannot be pasted"));
    table->setHorizontalHeaderLabels({tr("Row"), tr("Field"), tr("Text"), tr("Reason")});
    table->verticalHeader()->hide();
    table->horizontalHeader()->setStretchLastSection(true);
    table->setEditTriggers(QAbstractItemView::NoEditTriggers);
    table->setTabKeyNavigation(false);
    for (int row = 0; row < count; ++row) {
        const QStringList texts = textsOf(problems.at(row));
        for (int column = 0; column < texts.size(); ++column)
            table->setItem(row, column, new QTableWidgetItem(texts.at(column)));
    }
    return table;
}

void PasteProblems::addButtons()
{
    auto *const buttons = new QDialogButtonBox;
    buttons->addButton(tr("Paste the Rest"), QDialogButtonBox::AcceptRole)->setAutoDefault(false);
    QPushButton *const cancel = buttons->addButton(tr("Cancel"), QDialogButtonBox::RejectRole);
    cancel->setDefault(true);
    cancel->setFocus();
    QObject::connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    QObject::connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    layout()->addWidget(buttons);
}

void PasteProblems::ask(QWidget *window, const QList<PastePlan::Problem> &problems,
                        const std::function<void()> &rest)
{
    auto *const sheet = new PasteProblems(window, problems);
    QObject::connect(sheet, &QDialog::accepted, window, rest);
    sheet->open();
}
