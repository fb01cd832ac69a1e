#include "frontend/qt/boxes.hpp"

#include "frontend/qt/look.hpp"
#include "frontend/qt/text.hpp"
#include "frontend/qt/views.hpp"
#include "frontend/qt/waits.hpp"
#include "screen/frontend.hpp"

#include <QApplication>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QPushButton>
#include <QTreeView>
#include <QVBoxLayout>

#include <vector>

namespace kestrel::frontend {

namespace {

std::vector<QDialog*> open; // innermost last

// What the program asks stands over the window that a person works in.
QWidget* owner() {
    if (!open.empty()) return open.back();
    const screen::Window* active = screen::activeWindow();
    return active ? topOf(*active) : nullptr;
}

// Lets the person act until the dialog is closed. Every change of the model is on the screen before.
void runDialog(QDialog& dialog) {
    sync();
    open.push_back(&dialog);
    dialog.setModal(true);
    dialog.show();
    dialog.activateWindow();
    waitUntil([&] { return !dialog.isVisible(); });
    std::erase(open, &dialog);
    dialog.hide();
    giveBackKeyboard();
}

QLabel* makeText(const screen::MessageBox& box) {
    auto* text = new QLabel(shownLines(box.text));
    text->setTextFormat(Qt::PlainText);
    text->setObjectName("text");
    return text;
}

void addButtons(QDialog& dialog, const screen::MessageBox& box, QHBoxLayout& row, int& pressed) {
    row.addStretch(1);
    for (int i = 0; i < static_cast<int>(box.buttons.size()); ++i) {
        auto* button = new QPushButton(shownText(box.buttons[static_cast<std::size_t>(i)]), &dialog);
        button->setMinimumSize(toPixels(1200), toPixels(390));
        button->setAutoDefault(true);
        QObject::connect(button, &QPushButton::clicked, &dialog, [&dialog, &pressed, i] {
            pressed = i;
            dialog.accept();
        });
        row.addWidget(button);
        if (i != box.defaultButton) continue;
        button->setDefault(true);
        button->setFocus();
    }
    row.addStretch(1);
}

void layOut(QDialog& dialog, const screen::MessageBox& box, int& pressed) {
    auto* rows = new QVBoxLayout(&dialog);
    rows->setContentsMargins(toPixels(420), toPixels(390), toPixels(420), toPixels(300));
    rows->setSpacing(toPixels(390));
    rows->setSizeConstraint(QLayout::SetFixedSize);
    rows->addWidget(makeText(box));
    auto* buttons = new QHBoxLayout;
    buttons->setSpacing(toPixels(150));
    rows->addLayout(buttons);
    addButtons(dialog, box, *buttons, pressed);
}

// "title|pattern;pattern|title|pattern" as the toolkit writes it.
QStringList nameFilters(const std::string& filter) {
    const QStringList parts = shownText(filter).split('|');
    QStringList filters;
    for (qsizetype i = 0; i + 1 < parts.size(); i += 2) {
        QString title = parts[i];
        if (const qsizetype bracket = title.indexOf('('); bracket >= 0) title.truncate(bracket);
        QString patterns = parts[i + 1];
        if (patterns == "*.*") patterns = "*"; // every file, with a point in its name or without
        filters << title.trimmed() + " (" + patterns.replace(';', ' ') + ")";
    }
    return filters;
}

// Name, size and date as wide as what stands in them; the kind says nothing that the name doesn't.
void widenColumns(QFileDialog& picker) {
    constexpr int kind = 2;
    auto* entries = picker.findChild<QTreeView*>("treeView");
    if (!entries) return;
    entries->setColumnHidden(kind, true);
    for (int column : {1, 3}) entries->header()->setSectionResizeMode(column, QHeaderView::ResizeToContents);
    entries->header()->setSectionResizeMode(0, QHeaderView::Stretch);
}

std::optional<std::string> runPicker(QFileDialog& picker, const std::string& startFolder) {
    picker.setOption(QFileDialog::DontUseNativeDialog);
    picker.setDirectory(shownText(startFolder));
    widenColumns(picker);
    runDialog(picker);
    if (picker.result() != QDialog::Accepted || picker.selectedFiles().isEmpty()) return std::nullopt;
    return modelText(picker.selectedFiles().constFirst());
}

} // namespace

int messageBox(const screen::MessageBox& box) {
    int pressed = box.cancelButton;
    QDialog dialog(owner(), Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint | Qt::WindowCloseButtonHint);
    dialog.setWindowTitle(shownText(box.title));
    layOut(dialog, box, pressed);
    runDialog(dialog);
    return pressed;
}

std::optional<std::string> fileDialog(const screen::FileDialog& dialog) {
    QFileDialog picker(owner());
    picker.setOption(QFileDialog::DontUseNativeDialog);
    picker.setFileMode(QFileDialog::AnyFile);
    picker.setFilter(picker.filter() |
                     QDir::Hidden); // a leading point hides nothing from a person who looks for a file
    const QStringList filters = nameFilters(dialog.filter);
    picker.setNameFilters(filters);
    if (dialog.filterIndex > 0 && dialog.filterIndex <= filters.size())
        picker.selectNameFilter(filters[dialog.filterIndex - 1]);
    return runPicker(picker, dialog.startFolder);
}

std::optional<std::string> folderDialog(const screen::FolderDialog& dialog) {
    QFileDialog picker(owner(), shownText(dialog.prompt));
    picker.setOption(QFileDialog::DontUseNativeDialog);
    picker.setOption(QFileDialog::ShowDirsOnly);
    picker.setFileMode(QFileDialog::Directory);
    return runPicker(picker, dialog.startFolder);
}

QDialog* dialogWaiting() {
    return open.empty() ? nullptr : open.back();
}

QLabel* boxText() {
    return open.empty() ? nullptr : open.back()->findChild<QLabel*>("text");
}

QFileDialog* pickerWaiting() {
    return qobject_cast<QFileDialog*>(dialogWaiting());
}

} // namespace kestrel::frontend
