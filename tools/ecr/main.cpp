#include "ecr/ui/run.h"

int main(int argc, char* argv[]) {
    return eseguiProgramma(argc, argv);
}
