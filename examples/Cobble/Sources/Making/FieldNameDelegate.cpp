#include "FieldNameDelegate.h"

#include <QLineEdit>

using namespace Qt::StringLiterals;

namespace {
/// Of what is typed.
constexpr int LongestName = 500;
} // namespace

QWidget *FieldNameDelegate::createEditor(QWidget *parent, const QStyleOptionViewItem &,
                                         const QModelIndex &) const
{
    auto *const editor = new QLineEdit(parent);
    editor->setObjectName(u"nameEdit"_s);
    editor->setAccessibleName(tr("Name of the field"));
    editor->setMaxLength(LongestName);
    return editor;
}

void FieldNameDelegate::setModelData(QWidget *editor, QAbstractItemModel *model,
                                     const QModelIndex &index) const
{
    const auto *const typed = qobject_cast<const QLineEdit *>(editor);
    if (typed && typed->isModified())
        model->setData(index, typed->text());
}
