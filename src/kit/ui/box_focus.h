#pragma once

class CampoEdit;
class CTextBox;

// The rules of a typed box at the focus of its widget: taken, and left with its value formatted. Another
// window in front is no leaving. For forms without rules of their own between the fields.
void seguiFuoco(CampoEdit* campo, CTextBox& casella);
