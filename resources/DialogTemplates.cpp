#include "resources/DialogTemplates.h"

#include "resources/DialogTexts.h"

#include <iterator>

namespace resources {

namespace {

using platform::ControlKind;
using platform::DialogControl;

// The texts are narrow string literals for the resource compiler; "" L"" pastes them wide.
#define WIDE_TEXT(text) L"" text

constexpr DialogControl kImportControls[] = {
    {IDC_AREAS_TO_CURVES, ControlKind::CheckBox, WIDE_TEXT(IDS_IMPORT_AREAS)},
    {IDC_IGNORE_STYLES, ControlKind::CheckBox, WIDE_TEXT(IDS_IMPORT_STYLES)},
    {IDC_IMPORT_DEFAULTS, ControlKind::PushButton, WIDE_TEXT(IDS_DEFAULTS)},
    {IDOK, ControlKind::DefaultButton, WIDE_TEXT(IDS_OK)},
    {IDCANCEL, ControlKind::PushButton, WIDE_TEXT(IDS_CANCEL)},
};

// A property page has no OK and Cancel of its own: the sheet around it has.
constexpr DialogControl kExportControls[] = {
    {IDC_AREAS_TO_CURVES, ControlKind::CheckBox, WIDE_TEXT(IDS_EXPORT_AREAS)},
    {IDC_RENDER_TEXT, ControlKind::CheckBox, WIDE_TEXT(IDS_EXPORT_TEXT)},
    {IDC_RENDER_MARKERS, ControlKind::CheckBox, WIDE_TEXT(IDS_EXPORT_MARKERS)},
    {IDC_EXPORT_DEFAULTS, ControlKind::PushButton, WIDE_TEXT(IDS_DEFAULTS)},
};

}  // namespace

const platform::DialogTemplate kImportDialog{IDD_IMPORT, WIDE_TEXT(IDS_IMPORT_CAPTION),
                                             kImportControls,
                                             static_cast<int>(std::size(kImportControls))};
const platform::DialogTemplate kExportDialog{IDD_EXPORT, WIDE_TEXT(IDS_EXPORT_CAPTION),
                                             kExportControls,
                                             static_cast<int>(std::size(kExportControls))};

}  // namespace resources
