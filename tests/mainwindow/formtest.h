#pragma once
// A main window on a fresh settings store, with the preferences as a first start reads them.

#include "core/globals.h"
#include "mainwindow/form1.h"
#include "preferences/preferences.h"
#include "preferences/regsettings.h"
#include "preferences/settings.h"
#include "support/controls/commandbars.h"
#include "support/fixture.h"

#include <QTest>
#include <memory>

class FormTest : public fixture::TempDirTest {
  protected:
    void SetUp() override {
        TempDirTest::SetUp();
        restartPreferences();
    }
    void TearDown() override {
        form.reset();
        TempDirTest::TearDown();
    }
    // The preferences as a new process reads them from the store.
    static void restartPreferences() {
        gResetPanes = false;
        mRegSettings::IniPreferences();
    }
    Form1& open() {
        form = std::make_unique<Form1>();
        form->show();
        EXPECT_TRUE(QTest::qWaitForWindowExposed(form.get()));
        return *form;
    }
    // Closes the window as the user would, so that it stores its layout.
    void closeAndForget() {
        form->close();
        form.reset();
    }
    CommandBarAction* action(int id) const { return form->CommandBars1->FindAction(id); }
    bool checked(int id) const { return action(id)->Checked(); }
    static QString pref(const char* key) {
        return GetSetting(AppTitle(), QStringLiteral("PreferencesNew"), QLatin1String(key));
    }

    std::unique_ptr<Form1> form;
};
