#include "QuillaryUI/Documents/PresetButton.cpp" // NOLINT
#include "QuillaryUI/Documents/ReminderSheet.cpp" // NOLINT
#include "QuillaryUI/Documents/ReminderWriting.cpp" // NOLINT
#include "QuillaryUI/Documents/RemindersModel.cpp" // NOLINT
#include "QuillaryUI/Documents/RemindersSheet.cpp" // NOLINT
#include "QuillaryUI/Documents/ReviewPanel.cpp" // NOLINT
