#pragma once
// One playing of a demo: the named resources its scripts declare, whether a script has
// ended it ("endDemo"), and the settings that a subsystem keeps for the whole show (the
// 3D engine's field of view, for one). The player makes one Show per playing; nested
// scripts share the show of the script that names them. Nothing here is process-wide,
// so a show can be thrown away and started afresh.
#include <memory>
#include <typeindex>
#include <unordered_map>

#include "script/Repository.hpp"
#include "script/ScriptCheck.hpp"

namespace vz {

class Show {
public:
    Show() = default;
    Show(const Show&) = delete;
    Show& operator=(const Show&) = delete;

    Repository repository;
    bool ended = false;  // set by "endDemo" in any script; the frame loop tests it
    // Set while the scripts are only checked, not played: nested scripts are then read
    // through as soon as their composite is made, and music files are opened at once.
    ScriptCheck* check = nullptr;

    // The show's one T, default-made on first use. A subsystem keeps its show-wide state
    // in a struct of its own and reaches it through here, never through a global.
    template <class T>
    T& settings() {
        std::shared_ptr<void>& slot = settings_[std::type_index(typeid(T))];
        if (!slot) slot = std::make_shared<T>();
        return *static_cast<T*>(slot.get());
    }

private:
    std::unordered_map<std::type_index, std::shared_ptr<void>> settings_;
};

}  // namespace vz
