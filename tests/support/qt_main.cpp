#include "platform/application.h"

#include <QTemporaryDir>

#include <gtest/gtest.h>

/// All controls run without a screen, in English and UTC, with settings that end with the run.
int main(int argc, char** argv)
{
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    const QTemporaryDir home;
    qputenv("XDG_CONFIG_HOME", home.path().toUtf8());
    qputenv("XDG_RUNTIME_DIR", home.path().toUtf8());
    qputenv("LC_ALL", "C.UTF-8");
    qputenv("TZ", "UTC");
    testing::InitGoogleTest(&argc, argv);
    const merov::platform::Application application(argc, argv);
    return RUN_ALL_TESTS();
}
