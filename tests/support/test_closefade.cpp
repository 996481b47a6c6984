// The fade of a closing window: when it runs, and that the window does not wait for it.
#include "support/themes/closefade.h"

#include <QApplication>
#include <QLabel>
#include <QPointer>
#include <QPropertyAnimation>
#include <QTest>
#include <QWidget>
#include <gtest/gtest.h>

namespace {

class CloseFade : public ::testing::Test {
  protected:
    void SetUp() override {
        owner.resize(400, 300);
        owner.show();
        form = new QWidget(&owner, Qt::Dialog);
        form->resize(200, 120);
        form->show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(form));
    }
    void TearDown() override { mFade::SetPlatformCanFade(std::nullopt); }
    QWidget owner;
    QWidget* form = nullptr;
};

} // namespace

TEST_F(CloseFade, RunsOnlyWhenChosenOnAPlatformThatFadesForAWindowInItsNormalState) {
    // Without a display there is no opacity to fade.
    EXPECT_FALSE(mFade::PlatformCanFade());
    EXPECT_FALSE(mFade::WantsCloseFade(form, true, 300));
    EXPECT_EQ(mFade::CloseAnimation(form, true, 300), nullptr);

    mFade::SetPlatformCanFade(true);
    EXPECT_TRUE(mFade::WantsCloseFade(form, true, 300));
    EXPECT_FALSE(mFade::WantsCloseFade(form, false, 300));
    EXPECT_FALSE(mFade::WantsCloseFade(form, true, 0));
    EXPECT_FALSE(mFade::WantsCloseFade(nullptr, true, 300));
    form->setWindowState(Qt::WindowMaximized);
    EXPECT_FALSE(mFade::WantsCloseFade(form, true, 300));
    form->setWindowState(Qt::WindowMinimized);
    EXPECT_FALSE(mFade::WantsCloseFade(form, true, 300));
    form->setWindowState(Qt::WindowNoState);
    EXPECT_TRUE(mFade::WantsCloseFade(form, true, 300));
    form->hide();
    EXPECT_FALSE(mFade::WantsCloseFade(form, true, 300));
}

TEST_F(CloseFade, APictureOfTheWindowFadesOverTheChosenTimeAndGoes) {
    mFade::SetPlatformCanFade(true);
    QPointer<QWidget> picture = mFade::CloseAnimation(form, true, 250);
    ASSERT_TRUE(picture);
    form->hide();
    EXPECT_TRUE(picture->isVisible());
    EXPECT_TRUE(picture->isWindow());
    EXPECT_EQ(picture->geometry(), QRect(form->mapToGlobal(QPoint(0, 0)), form->size()));
    EXPECT_EQ(static_cast<QLabel*>(picture.data())->pixmap().size(), form->grab().size());
    auto* fade = picture->findChild<QPropertyAnimation*>();
    ASSERT_NE(fade, nullptr);
    EXPECT_EQ(fade->duration(), 250);
    EXPECT_EQ(fade->propertyName(), "windowOpacity");
    EXPECT_EQ(fade->state(), QAbstractAnimation::Running);
    // At its end the picture closes and is deleted.
    fade->setCurrentTime(fade->duration());
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_TRUE(picture.isNull());
}
