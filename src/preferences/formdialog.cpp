#include "preferences/formdialog.h"

#include "core/errorreport.h"
#include "preferences/preferences.h"
#include "preferences/regsettings.h"
#include "support/themes/closefade.h"

#include <QPushButton>

FormDialog::FormDialog(const QString& formName, QWidget* parent)
    : QDialog(parent), m_unloadPlace(formName.toUtf8() + ".Form_Unload") {
    setObjectName(formName);
}

void FormDialog::RestorePlace() {
    mRegSettings::GetWindowConfig(this, objectName());
}

void FormDialog::Form_Unload() {
    HUNT_PLACE(m_unloadPlace.constData());
    if (m_unloaded) return;
    m_unloaded = true;
    BeforeUnload();
    mRegSettings::SaveWindowConfig(this, objectName());
}

void FormDialog::done(int result) {
    RunEvent(m_unloadPlace.constData(), [this] { Form_Unload(); });
    // The fade runs on by itself; the dialog closes now.
    mFade::CloseAnimation(this, WindowAnimation1, AnimationSpeed);
    QDialog::done(result);
}

QPushButton* FormDialog::MakeButton(const char* name) {
    auto* b = new QPushButton(this);
    b->setObjectName(QLatin1String(name));
    b->setAutoDefault(false);
    return b;
}
