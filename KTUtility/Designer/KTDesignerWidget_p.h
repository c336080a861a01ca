#pragma once

#include <QtUiPlugin/QDesignerCustomWidgetInterface>

#include <QString>

/// What Qt Designer has to know of a view, and how it makes one.
struct KTDesignerDescription
{
    QString className;
    /// The class of Qt that it extends, for forms that are read without this plug-in.
    QString baseName;
    /// As it stands in `#include <…>`.
    QString header;
    QString explanation;
    /// Whether other widgets may be put into it.
    bool isContainer = false;
    /// What a new one holds, as it stands in a form; may be empty.
    QString contents;
    QWidget *(*create)(QWidget *parent) = nullptr;
};

/// One view in Designer's box of widgets.
class KTDesignerWidget : public QDesignerCustomWidgetInterface
{
public:
    explicit KTDesignerWidget(const KTDesignerDescription &description);

    QString name() const override { return _description.className; }
    QString group() const override { return QStringLiteral("KTUtility"); }
    QString toolTip() const override { return _description.explanation; }
    QString whatsThis() const override { return _description.explanation; }
    QString includeFile() const override { return _description.header; }
    QIcon icon() const override;
    bool isContainer() const override { return _description.isContainer; }
    QWidget *createWidget(QWidget *parent) override { return _description.create(parent); }
    QString domXml() const override;

private:
    KTDesignerDescription _description;
};
