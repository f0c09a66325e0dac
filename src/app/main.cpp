#include "app/program.h"

int main(int argc, char* argv[]) {
    return eseguiProgramma(argc, argv);
}
