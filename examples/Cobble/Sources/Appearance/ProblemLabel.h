#pragma once

#include <QLabel>

/// A text that says what is wrong, in red that can be read on the colours of the desktop: its
/// contrast is that of the guidelines for accessible text (WCAG 2) or more.
class ProblemLabel : public QLabel
{
    Q_OBJECT

public:
    static constexpr double LeastContrast = 4.5;

    Q_INVOKABLE explicit ProblemLabel(QWidget *parent = nullptr);

    /// How well two colours can be told apart, 1 to 21.
    static double contrast(const QColor &one, const QColor &other);
    /// A red that can be read on a background; black or white where no red can.
    static QColor colorOn(const QColor &background);

protected:
    void changeEvent(QEvent *event) override;

private:
    void updateColor();

    bool _isUpdating = false;
};
