#include "engine3d/Object3D.hpp"

namespace vz {

void linkUnder(Object3D& child, Object3D* parent) {
    if (!parent) {
        makeRoot(child);
        return;
    }
    child.parent = parent;
    child.nextSibling = parent->firstChild;
    parent->firstChild = &child;
}

void makeRoot(Object3D& child) {
    child.parent = nullptr;
    child.nextSibling = nullptr;
}

}  // namespace vz
