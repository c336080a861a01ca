#pragma once

#include <KTUtility/KTUtilityExport.h>

#include <QObject>
#include <QPointer>

class KTArrayModel;
class QItemSelectionModel;

/// Keeps the rows that are selected in a view and the objects that are selected in the controller of
/// its KTArrayModel the same, whichever changes.
///
/// What the model does to the selection while rows come and go is not passed on: the controller has
/// selected what is right by then. KTArrayModel::attach() makes one.
///
/// \code
/// table->setModel(&model);
/// new KTArraySelection(&model, table->selectionModel(), table);
/// controller.setSelectionIndexes({0});    // the first row is selected
/// \endcode
class KTUTILITY_EXPORT KTArraySelection : public QObject
{
    Q_OBJECT

public:
    /// Begins with what the controller has selected.
    /// \param selection of a view whose model \a model is.
    KTArraySelection(KTArrayModel *model, QItemSelectionModel *selection,
                     QObject *parent = nullptr);

private:
    QList<qsizetype> selectedRows() const;
    void takeFromView();
    void showInView();

    QPointer<KTArrayModel> _model;
    QPointer<QItemSelectionModel> _selection;
    bool _isPassing = false;
};
