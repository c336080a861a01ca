#pragma once

#include <KTUtility/KTUtilityExport.h>

#include <QFont>
#include <QLabel>

/// A label of one line that shortens what is too long for it. Line breaks and tabs are shown as
/// spaces. The text is never taken for HTML, and "&" marks no letter.
///
/// In forms of Qt Designer that NSNib loads it is made by its class name.
///
/// \code
/// NSTextField field;
/// field.setStringValue(path);
/// field.sizeToFit();
/// field.resize(200, field.height());    // "/home/…/photo.jpg"
/// \endcode
class KTUTILITY_EXPORT NSTextField : public QLabel
{
    Q_OBJECT

public:
    /// An empty field.
    explicit NSTextField(QWidget *parent = nullptr);

    /// The whole text, however much of it is shown.
    QString stringValue() const { return text(); }
    void setStringValue(const QString &string) { setText(string); }

    /// Where a text that is too long is shortened; in the middle unless set.
    Qt::TextElideMode lineBreakMode() const { return _lineBreakMode; }
    void setLineBreakMode(Qt::TextElideMode mode);

    /// How wide the whole text is, in whole points. Of texts of more than 32,768 units, only so
    /// many are measured.
    int stringWidth() const;
    /// Gives the field the size of its whole text.
    void sizeToFit();
    /// The text as it is shown at the present width.
    QString shownText() const;

    /// The size of the whole text.
    QSize sizeHint() const override;
    /// As high as a line, and of any width.
    QSize minimumSizeHint() const override;

protected:
    /// Draws the shortened text.
    void paintEvent(QPaintEvent *event) override;

private:
    /// What was shortened last, for which the field is painted many times while it fades.
    struct Shortened
    {
        QString text;
        QFont font;
        int width = -1;
        Qt::TextElideMode mode = Qt::ElideMiddle;

        friend bool operator==(const Shortened &, const Shortened &) = default;
    };

    QString oneLine() const;

    Qt::TextElideMode _lineBreakMode = Qt::ElideMiddle;
    mutable Shortened _shortened;
    mutable QString _shownText;
};
