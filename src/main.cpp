#include "driver/TGame.h"

int main() {
    tolvane::TGame game;
    game.Run();
    return 0;
}
