#pragma once

#include <KTUtility/KTUtilityExport.h>

#include <QString>

/// The components that can be logged, in the order of the menu: one for each area of the host and
/// of the framework. Each is COMPONENT(constant, name): `kLog_constant` is a QString with the name
/// that people see in the logging menu and in the settings file. kLog_AppleScript is "AppleScript",
/// for example, and kLog_MediaFilenames is "Media -- Filenames". Deliberate: they are alphabetical
/// except in three places.
#define KT_LOGGER_COMPONENTS(COMPONENT)                                                            \
    COMPONENT(AppleScript, "AppleScript")                                                          \
    COMPONENT(validateMenuItem, "validateMenuItem")                                                \
    COMPONENT(BlockSelection, "Block Selection")                                                   \
    COMPONENT(CalcEngine, "Calc Engine")                                                           \
    COMPONENT(DragDrop, "Drag & Drop")                                                             \
    COMPONENT(DataMap, "DataMap")                                                                  \
    COMPONENT(EventsEngine, "Events Engine")                                                       \
    COMPONENT(ExportXML, "Export XML")                                                             \
    COMPONENT(ExportCobble, "Export Cobble")                                                       \
    COMPONENT(FieldPanel, "Field Panel")                                                           \
    COMPONENT(FieldGroup, "Field -- Group")                                                        \
    COMPONENT(FieldMedia, "Field -- Media")                                                        \
    COMPONENT(FieldText, "Field -- Text")                                                          \
    COMPONENT(FormCell, "Form -- Cell")                                                            \
    COMPONENT(FormContentSelector, "Form -- Content Selector")                                     \
    COMPONENT(FormScrollView, "Form -- ScrollView")                                                \
    COMPONENT(FormViewController, "Form -- View Controller")                                       \
    COMPONENT(FormattersCurrency, "Formatters -- Currency")                                        \
    COMPONENT(FormattersDateTimes, "Formatters -- Date/Times")                                     \
    COMPONENT(FormattersNumbers, "Formatters -- Numbers")                                          \
    COMPONENT(FormattersPhoneNumbers, "Formatters -- Phone Numbers")                               \
    COMPONENT(ImportDialog, "Import Dialog")                                                       \
    COMPONENT(ImportXML, "Import XML")                                                             \
    COMPONENT(KeyboardNavigation, "Keyboard Navigation")                                           \
    COMPONENT(Lifecycle, "Lifecycle")                                                              \
    COMPONENT(MainWindow, "Main Window")                                                           \
    COMPONENT(MediaFilenames, "Media -- Filenames")                                                \
    COMPONENT(MediaIKView, "Media -- IKView")                                                      \
    COMPONENT(MediaQTView, "Media -- QTView")                                                      \
    COMPONENT(MediaView, "Media View")                                                             \
    COMPONENT(Printing, "Printing")                                                                \
    COMPONENT(RollOverButtons, "Roll Over Buttons")                                                \
    COMPONENT(SchemaManager, "Schema Manager")                                                     \
    COMPONENT(SourceList, "SourceList")                                                            \
    COMPONENT(SourceItem, "SourceItem")                                                            \
    COMPONENT(TableViewController, "Table -- View Controller")                                     \
    COMPONENT(Tests, "Tests")                                                                      \
    COMPONENT(Undo, "Undo")                                                                        \
    COMPONENT(Upgrade, "Upgrade")

/// Declares the constant of one component, in the list above.
#define KT_DECLARE_LOGGER_COMPONENT(constant, name)                                                \
    KTUTILITY_EXPORT extern const QString kLog_##constant;
KT_LOGGER_COMPONENTS(KT_DECLARE_LOGGER_COMPONENT)
#undef KT_DECLARE_LOGGER_COMPONENT

/// "invalid": for messages that belong to no component. It has no menu entry; a message logged
/// under it is written only if the settings file names it.
KTUTILITY_EXPORT extern const QString kLog_invalid;
