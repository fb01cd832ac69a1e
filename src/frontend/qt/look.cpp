#include "frontend/qt/look.hpp"

#include "frontend/qt/text.hpp"

#include <QApplication>
#include <QFontMetricsF>
#include <QPainter>
#include <QScreen>
#include <QStyle>
#include <QStyleFactory>

#include <cmath>

namespace kestrel::frontend {

namespace {

constexpr double basePoints = 9;
constexpr double twipsPerPixel = 15;
constexpr double baseEm = basePoints * 96 / 72; // pixels of a full-width character at 96 dpi

namespace tone {
constexpr QRgb window = 0xfff5f6f8, field = 0xffffffff, alternate = 0xfff6f8fb, text = 0xff1f2733, quiet = 0xff4c5666,
               faded = 0xff7f8895, accent = 0xff2563a8, alarm = 0xffc0392b;
}

QPalette palette() {
    QPalette colors;
    colors.setColor(QPalette::Window, tone::window);
    colors.setColor(QPalette::Base, tone::field);
    colors.setColor(QPalette::AlternateBase, tone::alternate);
    colors.setColor(QPalette::Button, tone::field);
    for (const QPalette::ColorRole role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText}) {
        colors.setColor(role, tone::text);
        colors.setColor(QPalette::Disabled, role, tone::faded);
    }
    colors.setColor(QPalette::Disabled, QPalette::Base, 0xffeceef1);
    colors.setColor(QPalette::Highlight, tone::accent);
    colors.setColor(QPalette::HighlightedText, 0xffffffff);
    colors.setColor(QPalette::Inactive, QPalette::Highlight, 0xffb9cfe8);
    colors.setColor(QPalette::Inactive, QPalette::HighlightedText, tone::text);
    colors.setColor(QPalette::PlaceholderText, tone::faded);
    return colors;
}

const char* styleSheet = R"(
QLineEdit, QPlainTextEdit, QComboBox { background: #ffffff; color: #1f2733; border: 1px solid #c3c9d2; border-radius: 3px; }
QLineEdit { padding: 0px 2px 1px 2px; }
QLineEdit:focus, QPlainTextEdit:focus, QComboBox:focus { border: 2px solid #2563a8; background: #fbfdff; }
QLineEdit:focus { padding: 0px 1px; }
QPlainTextEdit, QTableView { padding: 1px; }
QPlainTextEdit:focus, QTableView:focus { padding: 0px; }
QLineEdit:disabled, QPlainTextEdit:disabled, QComboBox:disabled { background: #eceef1; color: #7f8895; border-color: #d9dde3; }
QComboBox { padding: 0px 3px 0px 4px; combobox-popup: 0; }
QComboBox:focus { padding: 0px 2px 0px 3px; }
QComboBox::drop-down { border: none; width: 16px; }
QComboBox::down-arrow { image: none; }
QComboBox QAbstractItemView { background: #ffffff; border: 1px solid #c3c9d2; selection-background-color: #2563a8; selection-color: #ffffff; outline: none; }
QPushButton { background: #ffffff; color: #1f2733; border: 1px solid #b7bfca; border-radius: 4px; padding: 0px 2px; }
QDialog QPushButton { padding: 3px 12px; }
QPushButton:hover { background: #eef4fb; border-color: #7fa3cc; }
QPushButton:pressed { background: #d8e5f4; }
QPushButton:focus { border: 2px solid #2563a8; }
QPushButton:default { border-color: #2563a8; }
QPushButton:disabled { background: #eff1f4; color: #a3aab5; border-color: #dde1e7; }
QTabBar::tab { background: transparent; color: #4c5666; border: none; border-bottom: 2px solid transparent; padding: 3px 14px 3px 14px; margin-right: 2px; }
QTabBar::tab:selected { color: #2563a8; border-bottom: 2px solid #2563a8; }
QTabBar::tab:hover { color: #2563a8; }
QTabBar::tab:selected:focus { background: #d8e5f4; }
QFrame#pane { background: #fbfcfd; border: 1px solid #d5dae1; border-radius: 4px; }
QTableView { background: #ffffff; alternate-background-color: #f3f6fa; border: 1px solid #c3c9d2; border-radius: 3px; outline: none; }
QTableView:focus { border: 2px solid #2563a8; }
QTableView::item { padding: 0px 4px; border: none; }
QHeaderView::section { background: #eceff3; color: #4c5666; border: none; border-right: 1px solid #d5dae1; border-bottom: 1px solid #c3c9d2; padding: 0px 5px; }
QHeaderView::section:hover { background: #e3ecf7; }
QLabel[role="title"] { background: #dde8f5; color: #1c4f8a; border-radius: 4px; padding: 0px 10px; }
QLabel[role="caption"] { color: #4c5666; padding: 0px 2px; }
QLabel[role="notice"] { background: #fff7e0; color: #5c4300; border: 1px solid #ecd9a4; border-radius: 3px; padding: 0px 8px; }
QLabel[role="silent"] { padding: 0px 8px; border: 1px solid #dfe3e9; border-radius: 3px; }
QLabel[role="press"] { background: #ffffff; color: #2563a8; border: 1px solid #b7bfca; border-radius: 4px; }
QLabel[role="press"]:disabled { background: #eff1f4; color: #a3aab5; border-color: #dde1e7; }
)";

// Exactly the screen's own ratio where the base font is the one meant; more where a substitute runs larger.
double measuredScale() {
    const double dots = QApplication::primaryScreen()->logicalDotsPerInchY() / 96;
    const double em = QFontMetricsF(QApplication::font()).horizontalAdvance(QChar(u'国'));
    return dots * std::max(1.0, std::round(em / (baseEm * dots) * 20) / 20);
}

double scale() {
    static const double measured = measuredScale();
    return measured;
}

int edge(int twips) {
    return static_cast<int>(std::lround(twips / twipsPerPixel * scale()));
}

enum class Role { title, notice, caption, press, ground, label };

// The suite's own prefixes say what a panel is for.
Role roleOf(const screen::Control& control) {
    const std::string_view name = control.name;
    if (control.notice) return Role::notice;
    if (control.kind == screen::Kind::xLabel) return Role::label;
    if (name.ends_with("ttl")) return Role::title;
    if (name.starts_with("itm_ttl_")) return Role::caption;
    return control.caption.empty() ? Role::ground : Role::press;
}

const char* roleName(Role role) {
    constexpr const char* names[] = {"title", "notice", "caption", "press", "ground", "label"};
    return names[static_cast<int>(role)];
}

// The style sheet reads a role when it first dresses a widget; another one needs it dressed again.
void setRole(QWidget& widget, const char* role) {
    if (widget.property("role").toString() == role) return;
    widget.setProperty("role", role);
    if (!widget.testAttribute(Qt::WA_WState_Polished)) return;
    widget.style()->unpolish(&widget);
    widget.style()->polish(&widget);
}

} // namespace

void dressApplication() {
    QApplication::setStyle(QStyleFactory::create("Fusion"));
    QFont font("Noto Sans CJK JP");
    font.setPointSizeF(basePoints);
    QApplication::setFont(font);
    QApplication::setPalette(palette());
    static_cast<QApplication*>(QCoreApplication::instance())->setStyleSheet(styleSheet);
    for (const Qt::UIEffect effect : {Qt::UI_AnimateCombo, Qt::UI_AnimateMenu, Qt::UI_AnimateTooltip, Qt::UI_FadeMenu})
        QApplication::setEffectEnabled(effect, false);
}

int toPixels(int twips) {
    return edge(twips);
}

QRect pixels(const screen::Place& place) {
    const QPoint first(edge(place.left), edge(place.top));
    const QPoint behind(edge(place.left + place.width), edge(place.top + place.height));
    return {first, QSize(behind.x() - first.x(), behind.y() - first.y())};
}

int rowHeight() {
    return edge(315);
}

int buttonPadding() {
    return 8;
}

// A sheet with a corner turned down, in units of a square of sixteen.
static void paintSheet(QPainter& painter, const QColor& ink) {
    painter.setPen(QPen(ink, 1.3));
    painter.setBrush(Qt::white);
    painter.drawPolygon(QPolygonF{{3, 1}, {9.5, 1}, {13, 4.5}, {13, 15}, {3, 15}});
    painter.drawPolyline(QPolygonF{{9.5, 1}, {9.5, 4.5}, {13, 4.5}});
}

QPixmap flagMark(bool on) {
    const int side = edge(225);
    QPixmap mark(side, side);
    mark.fill(Qt::transparent);
    QPainter painter(&mark);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.scale(side / 16.0, side / 16.0);
    paintSheet(painter, QColor(on ? tone::accent : tone::faded));
    painter.setPen(QPen(QColor(on ? tone::accent : tone::alarm), on ? 1.2 : 1.8));
    if (on)
        painter.drawLines({QLineF(5.5, 8, 10.5, 8), QLineF(5.5, 11, 10.5, 11)});
    else
        painter.drawLines({QLineF(5, 6.5, 11, 12.5), QLineF(11, 6.5, 5, 12.5)});
    return mark;
}

void paintArrow(QWidget& widget) {
    const double unit = scale();
    const QPointF tip(widget.width() - 8 * unit, widget.height() / 2.0 + 2 * unit);
    QPainter painter(&widget);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(widget.isEnabled() ? QColor(tone::quiet) : QColor(tone::faded), 1.5 * unit));
    painter.drawPolyline(QPolygonF{tip + QPointF(-3.5, -3.5) * unit, tip, tip + QPointF(3.5, -3.5) * unit});
}

void fitText(QWidget& widget, const QString& text, int width) {
    QFont font = widget.font();
    font.setStretch(QFont::Unstretched);
    const double needed = QFontMetricsF(font).horizontalAdvance(text);
    if (needed > width && width > 0) font.setStretch(std::max(50, static_cast<int>(100 * width / needed)));
    if (font != widget.font()) widget.setFont(font);
}

void dressNotice(QLabel& label) {
    setRole(label, label.text().isEmpty() ? "silent" : "notice");
}

void dressCaption(QLabel& label, const screen::Control& control) {
    const Role role = roleOf(control);
    setRole(label, role == Role::notice ? "silent" : roleName(role));
    label.setAlignment(role == Role::press ? Qt::AlignCenter : Qt::AlignLeft | Qt::AlignVCenter);
    if (role != Role::title) return;
    QFont font = label.font();
    font.setPointSizeF(basePoints + 1.5);
    font.setBold(true);
    label.setFont(font);
}

} // namespace kestrel::frontend
