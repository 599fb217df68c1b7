#include "QuillaryUI/Look/Theme.h"

#include <QApplication>

#include <gtest/gtest.h>

int main(int argumentCount, char** arguments)
{
    testing::InitGoogleTest(&argumentCount, arguments);
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argumentCount, arguments);
    Quillary::Theme::apply(application, Quillary::Theme::Scheme::light, QColor(0x1f, 0x5f, 0xbf));
    return RUN_ALL_TESTS();
}
