#include "frontend/qt/fields.hpp"

#include "frontend/qt/person.hpp"
#include "frontend/qt/text.hpp"

#include <QLineEdit>
#include <QPlainTextEdit>

#include <algorithm>

namespace kestrel::frontend {

namespace {

// "Off" prefers Latin but leaves the input method at hand; "disabled" takes it away.
void applyInputMode(QWidget& widget, screen::InputMode mode, Qt::InputMethodHints hints) {
    if (mode == screen::InputMode::off) hints |= Qt::ImhPreferLatin | Qt::ImhNoAutoUppercase | Qt::ImhNoPredictiveText;
    if (mode == screen::InputMode::disabled) hints |= Qt::ImhLatinOnly;
    widget.setInputMethodHints(hints);
    if (mode == screen::InputMode::disabled) widget.setAttribute(Qt::WA_InputMethodEnabled, false);
}

void writeLine(QLineEdit& line, const QString& text) {
    const bool allSelected = line.hasSelectedText() && line.selectedText().size() == line.text().size();
    const bool atEnd = line.cursorPosition() == line.text().size();
    const int cursor = line.cursorPosition();
    line.setText(text);
    if (allSelected)
        line.selectAll();
    else if (line.window()->focusWidget() != &line)
        line.setCursorPosition(0); // a long text shows its beginning
    else
        line.setCursorPosition(atEnd ? static_cast<int>(text.size())
                                     : std::min<int>(cursor, static_cast<int>(text.size())));
}

void writeMemo(QPlainTextEdit& memo, const QString& text) {
    const int cursor = memo.textCursor().position();
    memo.setPlainText(text);
    QTextCursor place = memo.textCursor();
    place.setPosition(memo.window()->focusWidget() == &memo ? std::min<int>(cursor, static_cast<int>(text.size())) : 0);
    memo.setTextCursor(place);
}

// A text that the program wrote into the memo is no edit: then the control has it already.
void memoEdited(QPlainTextEdit* memo) {
    const screen::Control* control = controlOf(memo);
    const std::string text = modelMemo(memo->toPlainText());
    if (control && shownMemo(control->text) != memo->toPlainText()) personEdited(memo, text);
}

} // namespace

QWidget* makeLine(screen::Control& control, QWidget* top) {
    auto* line = new QLineEdit(top);
    line->setDragEnabled(false);
    line->setAcceptDrops(false);
    line->setTextMargins(0, 0, 0, 0);
    if (control.kind == screen::Kind::xPass) line->setEchoMode(QLineEdit::Password);
    if (control.kind == screen::Kind::xNum) line->setAlignment(Qt::AlignCenter);
    if (control.kind != screen::Kind::xPass) applyInputMode(*line, control.inputMode, Qt::ImhNone);
    QObject::connect(line, &QLineEdit::textEdited, line,
                     [line](const QString& text) { personEdited(line, modelText(text)); });
    return line;
}

void applyLine(const screen::Control& control, QWidget& widget) {
    auto& line = static_cast<QLineEdit&>(widget);
    const QString text = shownText(control.text);
    if (line.text() != text) writeLine(line, text);
}

QWidget* makeMemo(screen::Control& control, QWidget* top) {
    auto* memo = new QPlainTextEdit(top);
    memo->setAcceptDrops(false);
    memo->viewport()->setAcceptDrops(false);
    memo->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    applyInputMode(*memo, control.inputMode, Qt::ImhMultiLine);
    QObject::connect(memo, &QPlainTextEdit::textChanged, memo, [memo] { memoEdited(memo); });
    return memo;
}

void applyMemo(const screen::Control& control, QWidget& widget) {
    auto& memo = static_cast<QPlainTextEdit&>(widget);
    const QString text = shownMemo(control.text);
    if (memo.toPlainText() != text) writeMemo(memo, text);
}

} // namespace kestrel::frontend
