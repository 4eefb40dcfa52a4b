#include "programs/drafta/program.h"

int main(int argc, char** argv) {
    return drafta::run(argc, argv);
}
