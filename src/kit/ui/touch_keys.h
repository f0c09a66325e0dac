#pragma once

#include <functional>

#include <QString>

class QWidget;

// On-screen keys, each a button "tasto_n" large enough for a finger. They leave the focus where it is.
using TastoPremuto = std::function<void(const QString& tasto)>;

// Letters, digits and the signs of codes; answers the character.
QWidget* tastieraLettere(const TastoPremuto& premuto, QWidget* padre);

// Digits, comma, empty, delete and Invio, written into the typed box that has the focus.
QWidget* tastierino(QWidget* padre);
