#pragma once

#include <QLabel>

/// A text that says what is wrong, with the sign for that, in red that can be read on the colours of
/// the desktop: its contrast is that of the guidelines for accessible text (WCAG 2) or more.
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
    /// Gives an input the ground of something wrong, or takes it away.
    static void mark(QWidget *input, bool isWrong);

    /// Draws a line around text and sign, for a label that lies over something else.
    void setFramed(bool isFramed);

protected:
    void changeEvent(QEvent *event) override;
    void paintEvent(QPaintEvent *event) override;

private:
    int signSize() const;
    void leaveSpaceForSign();
    void updateColor();

    bool _isFramed = false;
    bool _isUpdating = false;
};
