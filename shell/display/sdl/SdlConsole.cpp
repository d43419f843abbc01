// The windowed console: an SDL2 window of the hardware size that shows every frame with
// integer nearest-neighbour scaling, keeps its aspect when resized and toggles full
// screen with F11. Closing the window counts as pressing Escape.
#include <SDL.h>

#include <deque>

#include "shell/display/Display.hpp"

namespace vz {

namespace {

class SdlConsole : public Console {
public:
    ~SdlConsole() override { close(); }

    void open(const std::string& title, int width, int height, const Format&, int) override {
        if (SDL_InitSubSystem(SDL_INIT_VIDEO) != 0)
            throw DisplayError(std::string("cannot start the video system: ") + SDL_GetError());
        videoStarted_ = true;
        SDL_SetHint(SDL_HINT_RENDER_SCALE_QUALITY, "nearest");
        window_ = SDL_CreateWindow(title.c_str(), SDL_WINDOWPOS_CENTERED, SDL_WINDOWPOS_CENTERED, width, height,
                                   SDL_WINDOW_RESIZABLE);
        if (!window_) throw DisplayError(std::string("cannot open the window: ") + SDL_GetError());
        renderer_ = SDL_CreateRenderer(window_, -1, 0);
        if (!renderer_) renderer_ = SDL_CreateRenderer(window_, -1, SDL_RENDERER_SOFTWARE);
        if (!renderer_) throw DisplayError(std::string("cannot create a renderer: ") + SDL_GetError());
        SDL_RenderSetLogicalSize(renderer_, width, height);
        SDL_RenderSetIntegerScale(renderer_, SDL_TRUE);
        texture_ = SDL_CreateTexture(renderer_, SDL_PIXELFORMAT_RGB888, SDL_TEXTUREACCESS_STREAMING, width, height);
        if (!texture_) throw DisplayError(std::string("cannot create the frame texture: ") + SDL_GetError());
    }

    void close() override {
        if (texture_) SDL_DestroyTexture(texture_);
        if (renderer_) SDL_DestroyRenderer(renderer_);
        if (window_) SDL_DestroyWindow(window_);
        texture_ = nullptr;
        renderer_ = nullptr;
        window_ = nullptr;
        if (videoStarted_) SDL_QuitSubSystem(SDL_INIT_VIDEO);
        videoStarted_ = false;
    }

    void present(const std::uint32_t* pixels, int width, int) override {
        if (texture_) SDL_UpdateTexture(texture_, nullptr, pixels, width * 4);
    }

    void update() override {
        if (!renderer_) return;
        SDL_SetRenderDrawColor(renderer_, 0, 0, 0, 255);
        SDL_RenderClear(renderer_);
        SDL_RenderCopy(renderer_, texture_, nullptr, nullptr);
        SDL_RenderPresent(renderer_);
    }

    bool key() override {
        pumpEvents();
        return !keys_.empty();
    }

    void wait(int milliseconds) override {
        if (keys_.empty()) SDL_WaitEventTimeout(nullptr, milliseconds);
    }

    Key read() override {
        pumpEvents();
        if (keys_.empty()) return Key{};
        Key k = keys_.front();
        keys_.pop_front();
        return k;
    }

private:
    static int keyCode(SDL_Keycode code) {
        switch (code) {
        case SDLK_LEFT: return keyLeft;
        case SDLK_RIGHT: return keyRight;
        case SDLK_PAGEUP: return keyPageUp;
        case SDLK_PAGEDOWN: return keyPageDown;
        case SDLK_HOME: return keyHome;
        case SDLK_F12: return keyF12;
        default: return static_cast<int>(code);
        }
    }

    void pumpEvents() {
        SDL_Event event;
        while (SDL_PollEvent(&event)) {
            if (event.type == SDL_QUIT) {
                keys_.push_back(escapeKey);
            } else if (event.type == SDL_KEYDOWN) {
                const SDL_Keysym& sym = event.key.keysym;
                if (sym.sym == SDLK_F11) {
                    toggleFullScreen();
                    continue;
                }
                keys_.push_back(Key{keyCode(sym.sym), (sym.mod & KMOD_ALT) != 0, (sym.mod & KMOD_SHIFT) != 0,
                                    (sym.mod & KMOD_CTRL) != 0});
            }
        }
    }

    void toggleFullScreen() {
        bool full = (SDL_GetWindowFlags(window_) & SDL_WINDOW_FULLSCREEN_DESKTOP) != 0;
        SDL_SetWindowFullscreen(window_, full ? 0 : SDL_WINDOW_FULLSCREEN_DESKTOP);
    }

    bool videoStarted_ = false;
    SDL_Window* window_ = nullptr;
    SDL_Renderer* renderer_ = nullptr;
    SDL_Texture* texture_ = nullptr;
    std::deque<Key> keys_;
};

}  // namespace

std::unique_ptr<Console> makeWindowConsole() { return std::make_unique<SdlConsole>(); }

}  // namespace vz
