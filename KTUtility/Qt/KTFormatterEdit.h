#pragma once

#include "KTBoundEditor.h"
#include <KTUtility/KTUtilityExport.h>
#include <KTUtility/Platform/Numbers/NSFormatter.h>

#include <QStringList>
#include <QValidator>
#include <QVariant>
#include <QWidget>

#include <memory>

class QLabel;
class QLineEdit;

/// A line edit for values: a formatter shows them and reads what is typed.
///
/// While it has no focus it shows the value as people read it ("1,234.50 €", negative ones red), and
/// with the focus the text for editing ("1234.5"). Return and leaving it read the text. What cannot
/// be read, or what the bound object does not take, stays, with the reason in a line below, which
/// screen readers read as the description of the edit; Escape puts the value back. A text that
/// cannot become readable by typing more is told at once.
///
/// A value that is set while somebody types does not disturb the text, cursor or what can be undone:
/// the value of an object that was just set comes back in this way. If another object is selected
/// meanwhile, what was typed is stored in the one that it was typed for.
///
/// \code
/// auto *const amount = new KTFormatterEdit(std::make_shared<KTCurrencyFormatter>());
/// amount->bindTo(&controller, u"selection.amount", {.nullPlaceholder = tr("none")});
/// form->addRow(tr("&Amount"), amount);
/// \endcode
///
/// In Qt Designer, the formatter is the name of its class, its options are lines of "key=value".
class KTUTILITY_EXPORT KTFormatterEdit : public QWidget, public KTBoundEditor
{
    Q_OBJECT
    Q_INTERFACES(NSKeyValueBinding)
    Q_PROPERTY(QVariant value READ value WRITE setValue NOTIFY valueChanged
                   USER true DESIGNABLE false STORED false)
    Q_PROPERTY(QString formatterClass READ formatterClass WRITE setFormatterClass)
    Q_PROPERTY(QStringList formatterOptions READ formatterOptions WRITE setFormatterOptions)
    Q_PROPERTY(QString placeholderText READ placeholderText WRITE setPlaceholderText)
    Q_PROPERTY(Qt::Alignment alignment READ alignment WRITE setAlignment)
    Q_PROPERTY(bool readOnly READ isReadOnly WRITE setReadOnly)

public:
    /// An edit for texts.
    explicit KTFormatterEdit(QWidget *parent = nullptr);
    explicit KTFormatterEdit(std::shared_ptr<const NSFormatter> formatter,
                             QWidget *parent = nullptr);
    ~KTFormatterEdit() override;

    /// What shows and reads the value; null for texts as they are.
    const std::shared_ptr<const NSFormatter> &formatter() const { return _formatter; }
    /// Shows the value by another formatter, also when its properties change; null for texts as they
    /// are.
    void setFormatter(std::shared_ptr<const NSFormatter> formatter);
    /// The class of the formatter, such as "KTCurrencyFormatter"; nil if it was not set by name.
    const QString &formatterClass() const { return _formatterClass; }
    /// Makes a formatter of a class that KT_REGISTER_CLASS names. An unknown one is none.
    void setFormatterClass(const QString &name);
    /// Its properties: "decimalPlaces=2", "currencyType=EUR".
    const QStringList &formatterOptions() const { return _formatterOptions; }
    void setFormatterOptions(const QStringList &options);

    /// The value that was read or set last; nil for an empty text, unless there is no formatter.
    const QVariant &value() const { return _value; }
    /// Shows a value; a text that is being typed stays.
    void setValue(const QVariant &value);

    /// What is shown for nil where bindTo() says nothing else.
    QString placeholderText() const { return _placeholderText; }
    void setPlaceholderText(const QString &text);
    /// Where the text stands.
    Qt::Alignment alignment() const;
    /// Puts the text on one side, or in the middle.
    void setAlignment(Qt::Alignment alignment);
    /// Whether nothing can be typed; then it shows the value also with the focus.
    bool isReadOnly() const;
    /// Lets people type, or not.
    void setReadOnly(bool readOnly);
    /// What is typed into.
    QLineEdit *lineEdit() const { return _line; }

    /// What stands in the line.
    QString text() const;
    /// Whether the text is another than that of the value.
    bool isModified() const;
    /// How far the text is from one that can be read.
    QValidator::State inputState() const;
    /// Why the text was rejected; "" if it was not.
    QString reason() const { return _reason; }
    /// Shows a reason by which somebody else rejects the text, until it is changed.
    void reject(const QString &reason);

    /// commit(), for the controller that is bound.
    bool commitEditing() override { return commit(); }
    /// restore(), for the controller that is bound.
    void discardEditing() override { restore(); }

public Q_SLOTS:
    /// Reads the text and sets the value, as Return does.
    /// \return whether it was read and the bound object has taken it; nothing is done for a text that
    /// was not changed.
    bool commit();
    /// Puts the text of the value back, as Escape does.
    void restore();

Q_SIGNALS:
    void valueChanged();
    /// A text was read and its value set.
    void committed(const QVariant &value);
    /// A text was not read, or its value not taken. If others are selected meanwhile, it is lost.
    void rejected(const QString &text, const QString &reason);
    /// reason() is another, and with it the height that the edit needs.
    void reasonChanged(const QString &reason);

protected:
    /// The focus and keys of the line.
    bool eventFilter(QObject *object, QEvent *event) override;
    /// Shows the value in another locale.
    void changeEvent(QEvent *event) override;
    /// Tells screen readers the label.
    void showEvent(QShowEvent *event) override;

private Q_SLOTS:
    void formatterChanged();

private:
    void lookAt(const QString &typed);
    void showValue(const QVariant &value);
    void put(const QString &text);
    void showPlaceholder();
    void showColour();
    void setReason(const QString &reason);
    bool take(const QVariant &value);
    void leaveForOthers();
    bool handleKey(int key);
    void beginToEdit();
    void nameForScreenReaders();

    QLineEdit *_line;
    QLabel *_reasonLine;
    std::shared_ptr<const NSFormatter> _formatter;
    QString _formatterClass;
    QStringList _formatterOptions;
    QString _placeholderText;
    QVariant _value;
    QString _base; ///< the text of the value, as it was put into the line
    QString _reason;
    bool _isEditing = false;
    bool _isCommitting = false;
};
