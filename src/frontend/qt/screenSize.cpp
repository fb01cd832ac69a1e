#include "screen/frontend.hpp"

#include <QGuiApplication>
#include <QScreen>

namespace kestrel::frontend {

std::optional<ScreenSize> screenSize() {
    const QScreen* screen = QGuiApplication::primaryScreen();
    if (!screen) return std::nullopt;
    const QSize size = screen->size() * screen->devicePixelRatio();
    return ScreenSize{size.width(), size.height()};
}

} // namespace kestrel::frontend
