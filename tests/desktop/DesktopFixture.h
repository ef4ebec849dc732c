#pragma once

#include <QDir>
#include <QElapsedTimer>
#include <QImage>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QTest>
#include <functional>

#include <gtest/gtest.h>

#include "desktop/Preferences.h"

namespace vellora::desktop {

/// A folder with photos of plain colours, and settings that touch nobody's own.
struct DesktopTest : testing::Test {
    DesktopTest() {
        QStandardPaths::setTestModeEnabled(true);
        QDir(QStandardPaths::writableLocation(QStandardPaths::AppDataLocation)).removeRecursively();
        Preferences preferences;
        preferences.language = QStringLiteral("english");
        preferences.store();
    }

    QTemporaryDir folder;

    QString photo(const QString& name, QSize size = {80, 60}, QColor colour = Qt::darkGreen) {
        QImage picture(size, QImage::Format_RGB32);
        picture.fill(colour);
        const QString path = folder.filePath(name);
        EXPECT_TRUE(picture.save(path));
        return path;
    }

    /// Runs the event loop until something holds; fails the test after ten seconds.
    static void waitFor(const std::function<bool()>& condition, const char* what) {
        EXPECT_TRUE(QTest::qWaitFor(condition, 10'000)) << what;
    }
};

}  // namespace vellora::desktop
