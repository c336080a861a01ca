#pragma once

#include "Open/OpenBundle.h"

#include <KTUtility/KTDialogController>

#include <QElapsedTimer>
#include <QPointer>
#include <QSize>

/// A sheet that asks for a file and then shows how far the work with it is. Cancel and Escape end
/// the sheet, or the work while there is some. Work that does not need the window below lets it be
/// used meanwhile: the sheet is a small window of its own then, with how far it is and Cancel.
///
/// The window is that of an interface file with the parts fileEdit, chooseButton, progressBar,
/// problemLabel, goButton and cancelButton.
class TransferSheet : public KTDialogController
{
    Q_OBJECT

public:
    TransferSheet(const QString &interfaceFile, OpenBundle *bundle);

    /// The path that is typed in.
    QString file();
    void setFile(const QString &path);
    /// What stands below the fields; nil if all is well.
    QString problem();
    bool isWorking() const { return _isWorking; }

    void configDialog() override;
    /// How often the work stops to look at what the user does, in milliseconds.
    void setLookInterval(qint64 interval) { _lookInterval = interval; }
    /// How long the window below waits at most, in milliseconds.
    void setReleaseDelay(qint64 delay) { _releaseDelay = delay; }
    /// Begins the work, as the button does.
    void go();
    /// Ends the work, or else the sheet.
    void cancel();

    bool eventFilter(QObject *object, QEvent *event) override;

protected:
    void windowDidLoad() override;

    /// Does the work; the sheet ends if that went well.
    virtual Outcome<> work() = 0;
    /// Asks for the file.
    virtual void choose() = 0;

    /// Shows how far the work is, and lets the user see and cancel it.
    /// \return whether to go on.
    bool goOn(qint64 done, qint64 total);
    OpenBundle *bundle() const { return _bundle; }
    /// Lets the window below be used until the work is done, if it lasts already.
    void releaseHostIfLong();

private:
    void releaseHost();
    void setCompact(bool isCompact);
    void blockHostAgain();
    void showProblem(const QString &problem);
    void setWorking(bool isWorking);
    void setInputsEnabled(bool isEnabled);
    Outcome<> workSafely();
    Outcome<> workAlone();

    OpenBundle *_bundle;
    QPointer<QWidget> _lastFocus;
    /// What cannot be used while there is work.
    QList<QPointer<QWidget>> _disabled;
    /// What is not seen while the sheet is small.
    QList<QPointer<QWidget>> _hidden;
    QSize _fullSize;
    QElapsedTimer _lastLook;
    qint64 _lookInterval = 40;
    QElapsedTimer _sinceBegin;
    qint64 _releaseDelay = 1000;
    bool _isWorking = false;
    bool _isCancelled = false;
    /// Whether it is hidden for a moment, which is no end.
    bool _isMoving = false;
};
