#include "app/mmain.h"

int main(int argc, char** argv) {
    return mMain::Run(argc, argv);
}
