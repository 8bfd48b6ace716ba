// Where there is no library for it, the terminal itself edits lines.
#include "lineeditor.h"

namespace mcusim {

bool LineEditor::isAvailable() { return false; }

LineEditor::LineEditor(const char *, Complete) {}
LineEditor::~LineEditor() = default;
void LineEditor::begin() {}
LineEditor::Key LineEditor::read(QByteArray *) { return Key::End; }
void LineEditor::end() {}
void LineEditor::redraw() {}

} // namespace mcusim
