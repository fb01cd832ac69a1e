#include "frontend/qt/pictures.hpp"

#include "frontend/qt/boxes.hpp"
#include "frontend/qt/text.hpp"
#include "frontend/qt/views.hpp"

#include <QCoreApplication>
#include <QPainter>
#include <QPixmap>

namespace kestrel::frontend {

namespace {

struct Layer {
    QWidget* widget;
    QPoint place; // in the picture
};

// What lies over the first window stands in its middle, with a line around it in place of the frame.
std::vector<Layer> layers() {
    std::vector<QWidget*> widgets;
    for (const screen::Window* window : screen::shownWindows())
        if (QWidget* top = topOf(*window)) widgets.push_back(top);
    if (QDialog* dialog = dialogWaiting()) widgets.push_back(dialog);
    std::vector<Layer> result;
    for (QWidget* widget : widgets) {
        const QRect below = widgets.front()->rect();
        result.push_back({widget, below.center() - widget->rect().center()});
    }
    return result;
}

QRect bounds(const std::vector<Layer>& all) {
    QRect whole;
    for (const Layer& layer : all) whole |= QRect(layer.place, layer.widget->size()).adjusted(-1, -1, 1, 1);
    return whole;
}

void paintLayer(QPixmap& picture, const Layer& layer, QPoint origin) {
    const QPoint place = layer.place - origin;
    layer.widget->render(&picture, place);
    QPainter painter(&picture);
    painter.setPen(QColor(0x8d, 0x95, 0xa1));
    painter.drawRect(QRect(place, layer.widget->size()).adjusted(-1, -1, 0, 0));
}

bool save(const std::vector<Layer>& all, int factor, const QString& path) {
    const QRect whole = bounds(all);
    QPixmap picture(whole.size() * factor);
    picture.setDevicePixelRatio(factor);
    picture.fill(Qt::white);
    for (const Layer& layer : all) paintLayer(picture, layer, whole.topLeft());
    return picture.save(path);
}

} // namespace

bool savePictures(const std::string& folder, const std::string& name) {
    sync();
    QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
    const std::vector<Layer> all = layers();
    const QString path = shownText(folder + "/" + name);
    return !all.empty() && save(all, 1, path + ".png") && save(all, 2, path + "@2x.png");
}

} // namespace kestrel::frontend
