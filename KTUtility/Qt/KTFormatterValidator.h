#pragma once

#include <KTUtility/KTUtilityExport.h>
#include <KTUtility/Platform/Numbers/NSFormatter.h>

#include <QValidator>

#include <memory>

/// Lets a formatter judge what is typed into a QLineEdit or a combo box of Qt.
///
/// A text that the formatter reads is Acceptable, and so is none. Letters in a number are Invalid
/// and cannot be typed; every other text is Intermediate, since more may be typed. fixup() completes
/// or cuts what was typed too little or too much of ("(12" and "12,") and writes it as the formatter
/// does.
///
/// \code
/// const auto prices = std::make_shared<KTNumberFormatter>();
/// lineEdit->setValidator(new KTFormatterValidator(prices, lineEdit));
/// \endcode
class KTUTILITY_EXPORT KTFormatterValidator : public QValidator
{
    Q_OBJECT

public:
    /// \param formatter null accepts everything.
    explicit KTFormatterValidator(std::shared_ptr<const NSFormatter> formatter,
                                  QObject *parent = nullptr);

    /// What judges; null accepts everything.
    const std::shared_ptr<const NSFormatter> &formatter() const { return _formatter; }

    /// How far a text is from one that can be read.
    State validate(QString &input, int &position) const override;
    /// Makes a text readable, if it is clear what was meant.
    void fixup(QString &input) const override;

private:
    std::shared_ptr<const NSFormatter> _formatter;
};
