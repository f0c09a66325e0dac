#pragma once

// How the program is called, for the person at the terminal.
extern const char* const testoAiuto;
