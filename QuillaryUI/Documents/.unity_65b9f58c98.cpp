#include "QuillaryUI/Documents/FeesTable.cpp" // NOLINT
#include "QuillaryUI/Documents/LinesModel.cpp" // NOLINT
#include "QuillaryUI/Documents/LinesTable.cpp" // NOLINT
