/* Ids and texts of the dialog templates: the one source for the resource compiler and for C++. */
#ifndef QOLF_RESOURCES_DIALOGTEXTS_H
#define QOLF_RESOURCES_DIALOGTEXTS_H

#define IDD_IMPORT 100
#define IDD_EXPORT 102

#define IDC_IMPORT_DEFAULTS 2100
#define IDC_AREAS_TO_CURVES 2101
#define IDC_IGNORE_STYLES 2102
#define IDC_RENDER_TEXT 2103
#define IDC_RENDER_MARKERS 2104
#define IDC_EXPORT_DEFAULTS 2105

#define IDS_IMPORT_CAPTION "MIF Import Options"
#define IDS_IMPORT_AREAS "Read &areas as curves"
#define IDS_IMPORT_STYLES "&Ignore styles"
#define IDS_EXPORT_CAPTION "MIF Options"
#define IDS_EXPORT_AREAS "&Write areas as curves"
#define IDS_EXPORT_TEXT "Render &text"
#define IDS_EXPORT_MARKERS "Render &marker symbols"
#define IDS_DEFAULTS "&Defaults"
#define IDS_OK "OK"
#define IDS_CANCEL "Cancel"

#endif
