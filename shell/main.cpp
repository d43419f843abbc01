#include <cstdio>

int main() {
    std::puts("vzplayer " VZ_VERSION);
    return 0;
}
