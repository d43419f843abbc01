#pragma once
// What a component's constructor is given, and the one way it reads its parameters.
//
// The context stands on the component's script line just after its keyword. A
// constructor takes the parameters in the order of its syntax line, so it reads like
// that line:
//     CopyLayer32bpp(ComponentContext& in)
//         : target_(in.symbol<Layer32bpp>()), source_(in.symbol<Layer32bpp>()),
//           rendu_(in.symbol<KeytrackInt>()) {}
// Every resource it takes is recorded, and the sequencer hands that list to the new
// component, which keeps them alive as long as it lives. The checks fail with
// "<keyword> : <what is wrong>", logged between dash lines.
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "core/Layer.hpp"
#include "core/Resource.hpp"
#include "script/Repository.hpp"

namespace vz {

class Sequencer;
class Show;
class TextParser;

class ComponentContext {
public:
    ComponentContext(std::string keyword, TextParser& parser, Show& show, Sequencer& sequencer);

    // ---- Parameters, in syntax order ----

    // A declared symbol of kind T, or, for tracks and colours, an inline "const..."
    // literal. A missing name or another kind is a fatal error naming the symbol.
    template <class T>
    T& symbol() {
        return Repository::dataAs<T>(borrow(repository().aquire(parser_, T::staticKind())));
    }
    // A declared symbol of kind T, never a literal (a track that a component rewrites).
    template <class T>
    T& declared() {
        return Repository::dataAs<T>(borrow(repository().aquire(word(), T::staticKind())));
    }
    int integer();  // "%d"
    // An integer that sizes or counts something: "<name> N is not within LOW to HIGH"
    // unless LOW <= N <= HIGH.
    int integerWithin(const char* name, int low, int high);
    float real();  // "%f"
    // A float that becomes a size, a position or a time: "<name> V is not within LOW to
    // HIGH" unless it is finite and LOW <= V <= HIGH.
    float realWithin(const char* name, double low, double high);
    std::uint8_t byte();  // an "unsignedChar": the integer's low byte
    std::string word();   // a file name or a keyword

    // ---- Checks ----

    // "<role> is WxH, the target is WxH" unless `layer` has the target's size.
    void requireSameSize(const char* role, const Layer& layer, const Layer& target) const;
    // "<role> is WxH, smaller than the target's WxH" unless `layer` is as wide and as high.
    void requireCovers(const char* role, const Layer& layer, const Layer& target) const;
    // "<role> holds N pixels, the target needs M" unless `layer` holds the target's pixel
    // count (layers read as flat runs of the target's length).
    void requirePixelCount(const char* role, const Layer& layer, const Layer& target) const;
    // "<role> must hold 256x256 entries, it is WxH" unless `layer` holds 65,536 entries
    // (textures and look-up tables addressed by 16-bit indices).
    void requireFullTable(const char* role, const Layer& layer) const;
    // "target and source must be different layers" when they are one layer.
    void requireDistinct(const Layer& target, const Layer& source) const;
    // Fails with "<keyword> : <what>".
    [[noreturn]] void fail(const std::string& what) const;

    // ---- Where the component is made ----

    const std::string& keyword() const { return keyword_; }
    TextParser& parser() { return parser_; }
    Show& show() { return show_; }
    Repository& repository();
    Sequencer& sequencer() { return sequencer_; }
    // The resources taken so far, handed to the finished component.
    std::vector<std::shared_ptr<Resource>> takeBorrowed() { return std::move(borrowed_); }

private:
    const Symbol& borrow(const Symbol* symbol);

    std::string keyword_;
    TextParser& parser_;
    Show& show_;
    Sequencer& sequencer_;
    std::vector<std::shared_ptr<Resource>> borrowed_;
};

}  // namespace vz
