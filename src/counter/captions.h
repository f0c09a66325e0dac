#pragma once

struct Vendita;

// The buttons' captions; the "&" stands before the letter that Alt reaches the button with.
void scriviDidascalie(Vendita& v);
