#pragma once

#include <initializer_list>

class Campo;
struct Vendita;

// Shows fields in the colours of a warning for half a second; keys that come meanwhile wait.
void lampeggiaAvviso(Vendita& v, std::initializer_list<Campo*> campi);
