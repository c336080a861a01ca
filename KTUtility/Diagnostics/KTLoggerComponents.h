#pragma once

#include <KTUtility/KTUtilityExport.h>

#include <QString>

// The components that can be logged, one constant for each area of the host and of the framework.
// The value is the name that people see in the logging menu and in the settings file.

KTUTILITY_EXPORT extern const QString kLog_AppleScript;         ///< "AppleScript"
KTUTILITY_EXPORT extern const QString kLog_validateMenuItem;    ///< "validateMenuItem"
KTUTILITY_EXPORT extern const QString kLog_BlockSelection;      ///< "Block Selection"
KTUTILITY_EXPORT extern const QString kLog_CalcEngine;          ///< "Calc Engine"
KTUTILITY_EXPORT extern const QString kLog_DragDrop;            ///< "Drag & Drop"
KTUTILITY_EXPORT extern const QString kLog_DataMap;             ///< "DataMap"
KTUTILITY_EXPORT extern const QString kLog_EventsEngine;        ///< "Events Engine"
KTUTILITY_EXPORT extern const QString kLog_ExportXML;           ///< "Export XML"
KTUTILITY_EXPORT extern const QString kLog_ExportCobble;        ///< "Export Cobble"
KTUTILITY_EXPORT extern const QString kLog_FieldPanel;          ///< "Field Panel"
KTUTILITY_EXPORT extern const QString kLog_FieldGroup;          ///< "Field -- Group"
KTUTILITY_EXPORT extern const QString kLog_FieldMedia;          ///< "Field -- Media"
KTUTILITY_EXPORT extern const QString kLog_FieldText;           ///< "Field -- Text"
KTUTILITY_EXPORT extern const QString kLog_FormCell;            ///< "Form -- Cell"
KTUTILITY_EXPORT extern const QString kLog_FormContentSelector; ///< "Form -- Content Selector"
KTUTILITY_EXPORT extern const QString kLog_FormScrollView;      ///< "Form -- ScrollView"
KTUTILITY_EXPORT extern const QString kLog_FormViewController;  ///< "Form -- View Controller"
KTUTILITY_EXPORT extern const QString kLog_FormattersCurrency;  ///< "Formatters -- Currency"
KTUTILITY_EXPORT extern const QString kLog_FormattersDateTimes; ///< "Formatters -- Date/Times"
KTUTILITY_EXPORT extern const QString kLog_FormattersNumbers;   ///< "Formatters -- Numbers"
KTUTILITY_EXPORT extern const QString
    kLog_FormattersPhoneNumbers;                                ///< "Formatters -- Phone Numbers"
KTUTILITY_EXPORT extern const QString kLog_ImportDialog;        ///< "Import Dialog"
KTUTILITY_EXPORT extern const QString kLog_ImportXML;           ///< "Import XML"
KTUTILITY_EXPORT extern const QString kLog_KeyboardNavigation;  ///< "Keyboard Navigation"
KTUTILITY_EXPORT extern const QString kLog_Lifecycle;           ///< "Lifecycle"
KTUTILITY_EXPORT extern const QString kLog_MainWindow;          ///< "Main Window"
KTUTILITY_EXPORT extern const QString kLog_MediaFilenames;      ///< "Media -- Filenames"
KTUTILITY_EXPORT extern const QString kLog_MediaIKView;         ///< "Media -- IKView"
KTUTILITY_EXPORT extern const QString kLog_MediaQTView;         ///< "Media -- QTView"
KTUTILITY_EXPORT extern const QString kLog_MediaView;           ///< "Media View"
KTUTILITY_EXPORT extern const QString kLog_Printing;            ///< "Printing"
KTUTILITY_EXPORT extern const QString kLog_RollOverButtons;     ///< "Roll Over Buttons"
KTUTILITY_EXPORT extern const QString kLog_SchemaManager;       ///< "Schema Manager"
KTUTILITY_EXPORT extern const QString kLog_SourceList;          ///< "SourceList"
KTUTILITY_EXPORT extern const QString kLog_SourceItem;          ///< "SourceItem"
KTUTILITY_EXPORT extern const QString kLog_TableViewController; ///< "Table -- View Controller"
KTUTILITY_EXPORT extern const QString kLog_Tests;               ///< "Tests"
KTUTILITY_EXPORT extern const QString kLog_Undo;                ///< "Undo"
KTUTILITY_EXPORT extern const QString kLog_Upgrade;             ///< "Upgrade"

/// "invalid": for messages that belong to no component. It has no menu entry; a message logged
/// under it is written only if the settings file names it.
KTUTILITY_EXPORT extern const QString kLog_invalid;
