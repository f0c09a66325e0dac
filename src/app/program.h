#pragma once

// The whole program: windows, ports and the event loop. Answers the exit code.
int eseguiProgramma(int argc, char* argv[]);
