#include "frontend/qt/application.hpp"

#include "frontend/qt/look.hpp"
#include "frontend/qt/views.hpp"

#include <QApplication>
#include <QLibraryInfo>
#include <QTranslator>

#include <cstdio>
#include <cstdlib>

namespace kestrel::frontend {

// Only while the display is being opened: the toolkit's own pages of advice about plug-ins help nobody at a desk, and
// its abort would leave a core dump.
static void reportNoDisplay(QtMsgType type, const QMessageLogContext&, const QString&) {
    if (type != QtFatalMsg) return;
    const char* display = std::getenv("DISPLAY");
    std::fprintf(stderr, "no display can be opened (DISPLAY is %s)\n", display && *display ? display : "not set");
    std::_Exit(1);
}

// The words of the toolkit's own dialogs.
static void speakJapanese() {
    auto* words = new QTranslator(QCoreApplication::instance());
    if (words->load("qtbase_ja", QLibraryInfo::path(QLibraryInfo::TranslationsPath)))
        QCoreApplication::installTranslator(words);
}

Application::Application(std::string program) : program_(std::move(program)), arguments_{program_.data(), nullptr} {
    const QtMessageHandler usual = qInstallMessageHandler(reportNoDisplay);
    application_ = std::make_unique<QApplication>(count_, arguments_);
    qInstallMessageHandler(usual);
    QApplication::setQuitOnLastWindowClosed(false); // only the exit decision ends the program
    QLocale::setDefault(QLocale(QLocale::Japanese, QLocale::Japan));
    speakJapanese();
    dressApplication();
}

Application::~Application() {
    dropAll();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

// Memory has no frames and no stacking: that the toolkit says so for every window is of no use to anyone.
static void dropAdvice(QtMsgType, const QMessageLogContext&, const QString& text) {
    if (!text.startsWith("This plugin does not support")) std::fprintf(stderr, "%s\n", qPrintable(text));
}

void drawOffScreen() {
    qInstallMessageHandler(dropAdvice);
    qputenv("QT_QPA_PLATFORM", "offscreen");
}

} // namespace kestrel::frontend
