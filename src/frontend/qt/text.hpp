// Between the model's UTF-8 and the toolkit's own text.
#pragma once

#include <QString>

#include <string>
#include <string_view>

namespace kestrel::frontend {

inline QString shownText(std::string_view text) {
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}
inline std::string modelText(const QString& text) {
    return text.toStdString();
}

// A memo's line ends: CR LF in the model, "\n" in the widget.
inline QString shownMemo(std::string_view text) {
    return shownText(text).replace("\r\n", "\n").replace('\r', '\n');
}
inline std::string modelMemo(QString text) {
    return modelText(text.replace('\n', "\r\n"));
}

// A box shows a carriage return as a line break. The line separator breaks the line too and can be told from a "\n"
// that stood in the text, so that what is read back is what was said.
inline QString shownLines(std::string_view text) {
    return shownText(text).replace('\r', QChar::LineSeparator);
}
inline std::string modelLines(QString text) {
    return modelText(text.replace(QChar::LineSeparator, '\r'));
}

} // namespace kestrel::frontend
