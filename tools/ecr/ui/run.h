#pragma once

// The whole program by its command line; answers its exit code: 0 all is well, 1 defects or a port that is
// taken, 2 a word that it does not know.
int eseguiProgramma(int argc, char* argv[]);
