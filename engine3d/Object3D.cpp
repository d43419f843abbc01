#include "engine3d/Object3D.hpp"

namespace vz {

bool linkUnder(Object3D& child, Object3D* parent) {
    if (!parent) {
        makeRoot(child);
        return true;
    }
    for (const Object3D* above = parent; above; above = above->parent)
        if (above == &child) return false;
    if (child.parent == parent && parent->firstChild == &child) return true;
    makeRoot(child);
    child.parent = parent;
    child.nextSibling = parent->firstChild;
    parent->firstChild = &child;
    return true;
}

void makeRoot(Object3D& child) {
    if (child.parent) {
        Object3D** link = &child.parent->firstChild;
        while (*link && *link != &child) link = &(*link)->nextSibling;
        if (*link) *link = child.nextSibling;
    }
    child.parent = nullptr;
    child.nextSibling = nullptr;
}

}  // namespace vz
