#pragma once
// Keeps the double quote out of the text boxes whose text goes into a line file
// (document/TextFields.h): an edit, typed or pasted, that brings one in is undone
// before anything reads it, and the user is told why with kDoubleQuoteRefused.

class QComboBox;
class QLineEdit;
class QPlainTextEdit;

namespace morvane {

class UserPort;

void RefuseQuotes(QLineEdit* edit, UserPort& port);
void RefuseQuotes(QComboBox* editableCombo, UserPort& port);
void RefuseQuotes(QPlainTextEdit* edit, UserPort& port);

}  // namespace morvane
