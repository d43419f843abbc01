#pragma once
// The object hierarchy of a scene: every 3D object knows its parent, its first child and
// its next sibling. Children are pushed at the front of their parent's list.
namespace vz {

class Object3D {
public:
    virtual ~Object3D() = default;

    Object3D* parent = nullptr;
    Object3D* firstChild = nullptr;
    Object3D* nextSibling = nullptr;
};

// `child` becomes the first child of `parent`, the former first child its next sibling.
// Linking is repeated every frame, so a child is first taken out of the list it is in,
// and a child already first under `parent` stays as it is. False, and nothing changes,
// when `parent` is the child itself or one of its descendants (a cycle). A null parent
// makes the child a root, as makeRoot does.
bool linkUnder(Object3D& child, Object3D* parent);
// Takes the child out of its parent's list and clears its parent and next sibling.
void makeRoot(Object3D& child);

}  // namespace vz
