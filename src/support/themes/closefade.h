#pragma once
// The fade of a window that closes: a picture of the window stands where it stood and fades out
// while the window itself is already gone, so nothing waits for the fade. It runs only where the
// platform can make a window see-through; elsewhere the window just closes.

#include <optional>

class QWidget;

namespace mFade {

// True where windows can be see-through: X11 with a compositing manager, Windows, macOS. Not
// without a display (offscreen) and not on Wayland, whose windows have no opacity of their own.
bool PlatformCanFade();
// Tests decide it here; std::nullopt returns to the platform's answer.
void SetPlatformCanFade(std::optional<bool> can);

// Whether `form` fades as it closes: the fade chosen (`enabled`) with a length above 0 ms, the
// form on screen in its normal state (not minimised, maximised or full screen), and a platform
// that fades.
bool WantsCloseFade(const QWidget* form, bool enabled, int speedMs);

// Starts the fade for `form`, which is about to hide, when WantsCloseFade says so. Answers the
// picture that fades (it deletes itself at the end), nullptr when there is no fade.
QWidget* CloseAnimation(QWidget* form, bool enabled, int speedMs);

} // namespace mFade
