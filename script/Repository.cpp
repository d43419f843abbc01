#include "script/Repository.hpp"

#include <utility>

#include "core/Palette.hpp"
#include "core/logstream.hpp"
#include "script/Keytrack.hpp"
#include "script/ResourceKinds.hpp"
#include "script/TextParser.hpp"

namespace vz {

namespace {

const char* const constantName = "dummySymbol";

// The store holds at most `capacity` symbols; a script that would go past it stops with
// a clear error instead of writing beyond the store.
void checkRoom(const Repository& repository) {
    if (repository.count() < Repository::capacity) return;
    std::string message = "Repository : more than " + std::to_string(Repository::capacity) + " symbols";
    fatal(message);
}

// Reads the literal of an inline "const..." parameter; null when the token is a name.
std::unique_ptr<Resource> readConstant(const std::string& token, TextParser& parser) {
    // Braced lists read their literals left to right.
    auto next = [&parser] { return parser.getFloat(); };
    if (token == "constFloat") return KeytrackFloat::constant(next());
    if (token == "constInt") return KeytrackInt::constant(parser.getInt());
    if (token == "constVector2") return KeytrackVector2::constant(Vector2{next(), next()});
    if (token == "constVector3") return KeytrackVector3::constant(Vector3{next(), next(), next()});
    if (token == "constSprite") return KeytrackSprite::constant(SpriteValue{next(), next(), next(), next()});
    if (token == "constColor") {
        // Red, green, blue: bytes 2, 1, 0.
        std::uint32_t red = static_cast<std::uint32_t>(parser.getInt()) & 0xFF;
        std::uint32_t green = static_cast<std::uint32_t>(parser.getInt()) & 0xFF;
        std::uint32_t blue = static_cast<std::uint32_t>(parser.getInt()) & 0xFF;
        return std::make_unique<Color>(red << 16 | green << 8 | blue);
    }
    return nullptr;
}

}  // namespace

void Repository::append(std::unique_ptr<Symbol> symbol) {
    checkRoom(*this);
    symbols_.push_back(std::move(symbol));
}

Symbol* Repository::find(const std::string& name) const {
    for (const auto& symbol : symbols_)
        if (symbol->name() == name) return symbol.get();
    return nullptr;
}

void Repository::add(std::unique_ptr<Symbol> symbol, const std::string& name) {
    // A duplicate is still added: lookups keep finding the older one.
    if (find(name)) logFramed("Repository::add : " + name + " already in the repository");
    logout() << "Repository::add " << name << lend;
    symbol->setName(name);
    append(std::move(symbol));
}

void Repository::load(TextParser& parser) {
    std::string name = parser.getTokenCopy();
    if (find(name)) {
        logout() << "Repository::loading, symbol already in the repository : " << name << lend;
        return;
    }
    std::string kind = parser.getTokenCopy();
    logout() << count() << " - Key [" << name << "] - Id [" << kind << "]" << lend;
    const ResourceKind* resourceKind = findResourceKind(kind.c_str());
    if (!resourceKind) fatal("unknow ResourceType : " + kind, "unknow ResourceType");
    if (!resourceKind->build) fatal(kind + " : this kind of resource is not available in this version");
    // Refuse before building, so that a full store does not load a file for nothing.
    checkRoom(*this);
    auto symbol = std::make_unique<Symbol>(resourceKind->build(parser, *this));
    symbol->setName(name);
    append(std::move(symbol));
}

void Repository::sub(const std::string& name) {
    auto found = symbols_.end();
    for (auto it = symbols_.begin(); it != symbols_.end(); ++it) {
        if ((*it)->name() == name) {
            found = it;
            break;
        }
    }
    if (found == symbols_.end()) logFramed("unload of an unknow symbol : " + name);
    logout() << "Repository::sub " << name << lend;
    if (found == symbols_.end()) return;  // nothing else is dropped
    // The last entry takes the freed place: the order of the others is not kept.
    std::swap(*found, symbols_.back());
    symbols_.pop_back();
}

Symbol* Repository::aquire(TextParser& parser, const char* wanted) {
    std::string token = parser.getTokenCopy();
    if (std::unique_ptr<Resource> constant = readConstant(token, parser)) {
        // Constants are anonymous: never logged, never checked, never dropped.
        auto symbol = std::make_unique<Symbol>(std::move(constant));
        symbol->setName(constantName);
        Symbol* result = symbol.get();
        append(std::move(symbol));
        return result;
    }
    return aquire(token, wanted);
}

Symbol* Repository::aquire(const std::string& name, const char* wanted) {
    if (Symbol* symbol = find(name)) return symbol;
    fatal("Fatal: " + name + " was not found", "Repository::aquire failure",
          "no symbol " + name + (wanted ? std::string(" (a ") + wanted + " was wanted)" : std::string()));
}

// The same exception as a missing name: the framed log line says what went wrong.
void Repository::wrongKind(const Symbol& symbol, const char* wanted) {
    fatal("Fatal: " + symbol.name() + " is not a " + wanted, "Repository::aquire failure",
          symbol.name() + " is a " + symbol.getData()->kindName() + ", a " + wanted + " was wanted");
}

void Repository::clear() { symbols_.clear(); }

}  // namespace vz
