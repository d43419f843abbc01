#include "engine3d/Transform.hpp"

#include <algorithm>
#include <cmath>
#include <numbers>

#include "core/Layer.hpp"
#include "engine3d/Clipping.hpp"
#include "engine3d/Scene.hpp"
#include "script/Material.hpp"

namespace vz {

Mat3 rotationFromAngles(float a, float b, float c) {
    const float sa = std::sin(a), ca = std::cos(a);
    const float sb = std::sin(b), cb = std::cos(b);
    const float sc = std::sin(c), cc = std::cos(c);
    Mat3 m;
    m.rows[0] = {cb * ca - sc * sa * sb, cb * sa + sc * ca * sb, -cc * sb};
    m.rows[1] = {-cc * sa, cc * ca, sc};
    m.rows[2] = {ca * sb + sc * sa * cb, sa * sb - sc * ca * cb, cc * cb};
    return m;
}

CameraView makeCameraView(const Camera& camera, int width, int height) {
    using V = Vec3T<double>;
    const V position = static_cast<V>(camera.position);
    V forward = normalized(static_cast<V>(camera.lookAt) - position);
    if (dot(forward, forward) == 0) forward = {0, 0, 1};
    // Up is the world's y unless the camera looks straight along it.
    V right = cross(V{0, 1, 0}, forward);
    right = dot(right, right) > 1e-18 ? normalized(right) : V{1, 0, 0};
    const V up = cross(forward, right);
    // A positive roll turns the camera anticlockwise about its line of sight.
    const double cr = std::cos(camera.roll), sr = std::sin(camera.roll);
    CameraView view;
    view.basis.rows[0] = right * cr + up * sr;
    view.basis.rows[1] = up * cr - right * sr;
    view.basis.rows[2] = forward;
    view.position = position;
    const double fov = std::clamp(static_cast<double>(camera.fov), 0.001, std::numbers::pi - 0.001);
    view.focal = 1.0 / std::tan(fov / 2);
    const int halfWidth = width >> 1, halfHeight = height >> 1;
    view.aspect = halfWidth > 0 && halfHeight > 0 ? static_cast<double>(halfWidth) / halfHeight : 1.0;
    // NaN from a track would otherwise slip through the clamps above.
    if (!std::isfinite(view.focal)) view.focal = 1.0;
    return view;
}

namespace {

constexpr int maxParents = 64;  // deeper chains are taken as a loop and cut there

const Placement& placementOf(Meshe& mesh, float time, int depth) {
    if (mesh.lastTime != -1.0f && mesh.lastTime == time) return mesh.world;
    const Mat3T<double> rotation = static_cast<Mat3T<double>>(mesh.rotation);
    mesh.local = {rotation.scaledColumns(static_cast<Vec3T<double>>(mesh.scale)),
                  static_cast<Vec3T<double>>(mesh.position)};
    mesh.world = mesh.local;
    if (auto* parent = dynamic_cast<Meshe*>(mesh.parent); parent && depth < maxParents)
        mesh.world = placementOf(*parent, time, depth + 1) * mesh.local;
    mesh.lastTime = time;
    return mesh.world;
}

template <class R>
void transformVertices(RenderContext& context, const Meshe& mesh, const Placement& world) {
    const CameraView& camera = context.camera;
    const auto matrix = static_cast<Mat3T<R>>(camera.basis * world.matrix);
    const auto translation = static_cast<Vec3T<R>>(camera.basis * (world.translation - camera.position));
    const R fx = static_cast<R>(camera.focal), fy = static_cast<R>(camera.focal * camera.aspect);
    const R nearZ = static_cast<R>(nearPlane);
    context.cameraSpace.resize(mesh.vertices.size());
    for (std::size_t i = 0; i < mesh.vertices.size(); ++i) {
        const Vertex& v = mesh.vertices[i];
        const Vec3T<R> p = matrix * Vec3T<R>{v.x, v.y, v.z} + translation;
        int outside = p.z < nearZ ? clipNear : 0;
        if (fx * p.x < -p.z) outside |= clipLeft;
        if (fx * p.x > p.z) outside |= clipRight;
        if (fy * p.y > p.z) outside |= clipTop;
        if (fy * p.y < -p.z) outside |= clipBottom;
        context.cameraSpace[i] = {static_cast<Vec3T<double>>(p), outside};
    }
}

// One clipping step: `current` is clipped into `spare`, and the two swap.
template <class R>
void clipStep(ClipVertex<R>*& current, ClipVertex<R>*& spare, int& n, int index, R value, R sign) {
    n = clipPolygon(current, n, spare, index, value, sign);
    std::swap(current, spare);
}

template <class R>
R signedArea(const ClipVertex<R>* polygon, int n) {
    R twice = 0;
    for (int i = 0; i < n; ++i) {
        const ClipVertex<R>& a = polygon[i];
        const ClipVertex<R>& b = polygon[i + 1 < n ? i + 1 : 0];
        twice += a.c[0] * b.c[1] - b.c[0] * a.c[1];
    }
    return twice;
}

template <class R>
void addFaces(RenderContext& context, const Meshe& mesh) {
    const CameraView& camera = context.camera;
    const R fx = static_cast<R>(camera.focal), fy = static_cast<R>(camera.focal * camera.aspect);
    ClipVertex<R> bufferA[clipCapacity], bufferB[clipCapacity];
    for (const Face& face : mesh.faces) {
        if (!face.material) continue;
        int inAll = ~0, inAny = 0;
        R distance = 0;
        ClipVertex<R>* polygon = bufferA;
        ClipVertex<R>* spare = bufferB;
        for (int k = 0; k < 3; ++k) {
            const Vertex& v = *face.corners[k];
            const CameraVertex& cv = context.cameraSpace[static_cast<std::size_t>(mesh.indexOf(&v))];
            inAll &= cv.outside;
            inAny |= cv.outside;
            distance += static_cast<R>(cv.p.z);
            polygon[k] = {{static_cast<R>(cv.p.x), static_cast<R>(cv.p.y), static_cast<R>(cv.p.z), v.u, v.v, v.u2, v.v2,
                           v.r, v.g, v.b}};
        }
        if (inAll) continue;  // wholly outside one plane of the view
        int n = 3;
        if (inAny & clipNear) clipStep(polygon, spare, n, 2, static_cast<R>(nearPlane), R(1));
        for (int k = 0; k < n; ++k) {
            R* c = polygon[k].c;
            const R z = c[2];
            c[0] = fx * c[0] / z;
            c[1] = -fy * c[1] / z;
            c[2] = static_cast<R>(nearDepth) / z;
        }
        // Front faces run anticlockwise on the screen (negative area, py pointing down).
        const R area = signedArea(polygon, n);
        if (!(area < 0)) {
            if (!(area > 0) || !face.material->doubleFace) continue;
            std::reverse(polygon, polygon + n);  // the back of a double-faced material
        }
        if (inAny & clipLeft) clipStep(polygon, spare, n, 0, R(-1), R(1));
        if (inAny & clipRight) clipStep(polygon, spare, n, 0, R(1), R(-1));
        if (inAny & clipTop) clipStep(polygon, spare, n, 1, R(-1), R(1));
        if (inAny & clipBottom) clipStep(polygon, spare, n, 1, R(1), R(-1));
        if (n < 3) continue;

        const int first = static_cast<int>(context.vertices.size());
        bool finite = true;
        for (int k = 0; k < n; ++k) {
            const R* c = polygon[k].c;
            for (int i = 0; i < clipValueCount; ++i) finite = finite && std::isfinite(c[i]);
            auto f = [c](int i) { return static_cast<float>(c[i]); };
            context.vertices.push_back({std::clamp(f(0), -1.0f, 1.0f), std::clamp(f(1), -1.0f, 1.0f), f(2), f(3), f(4),
                                        f(5), f(6), f(7), f(8), f(9)});
        }
        if (!finite) {  // a track or a modifier gave something that is not a number
            context.vertices.resize(static_cast<std::size_t>(first));
            continue;
        }
        const int sequence = static_cast<int>(context.faces.size());
        context.faces.push_back(
            {face.material, face.materialId, face.flatColor, first, n, static_cast<float>(distance / 3), sequence});
    }
}

}  // namespace

const Placement& placementOf(Meshe& mesh, float time) { return placementOf(mesh, time, 0); }

void beginFrame(RenderContext& context, const Camera& camera, const Layer& target) {
    context.camera = makeCameraView(camera, target.width, target.height);
    Viewport& viewport = context.viewport;
    viewport.centreX = viewport.scaleX = static_cast<float>(target.halfWidth);
    viewport.centreY = viewport.scaleY = static_cast<float>(target.halfHeight);
    viewport.width = target.width;
    viewport.height = target.height;
    viewport.pitch = target.width;
    context.clearFaces();
}

void toCameraSpace(RenderContext& context, Meshe& mesh, float time) {
    const Placement& world = placementOf(mesh, time);
    if (context.lowQuality)
        transformVertices<float>(context, mesh, world);
    else
        transformVertices<double>(context, mesh, world);
}

void addVisibleFaces(RenderContext& context, const Meshe& mesh) {
    if (context.lowQuality)
        addFaces<float>(context, mesh);
    else
        addFaces<double>(context, mesh);
}

void addMeshe(RenderContext& context, Meshe& mesh, float time) {
    toCameraSpace(context, mesh, time);
    addVisibleFaces(context, mesh);
}

void sortFarToNear(RenderContext& context) {
    std::sort(context.faces.begin(), context.faces.end(), [](const VisibleFace& a, const VisibleFace& b) {
        if (a.distance != b.distance) return a.distance > b.distance;
        return a.sequence < b.sequence;
    });
}

void projectScene(RenderContext& context, Scene& scene, const Layer& target, float time) {
    const int index = scene.currentCamera;
    if (index < 0 || index >= static_cast<int>(scene.cameras.size())) {
        context.clearFaces();
        return;
    }
    beginFrame(context, *scene.cameras[static_cast<std::size_t>(index)], target);
    for (Meshe* mesh : scene.objects) addMeshe(context, *mesh, time);
    sortFarToNear(context);
}

ProjectedPoint project(const CameraView& camera, const Vec3T<double>& p) {
    return {static_cast<float>(camera.focal * p.x / p.z), static_cast<float>(-camera.focal * camera.aspect * p.y / p.z),
            static_cast<float>(nearDepth / p.z)};
}

bool projectSegment(const RenderContext& context, const Vec3T<double>& a, const Vec3T<double>& b, ProjectedPoint& pa,
                    ProjectedPoint& pb) {
    if (a.z < nearPlane && b.z < nearPlane) return false;
    Vec3T<double> from = a, to = b;
    if (from.z < nearPlane) from = a + (b - a) * ((nearPlane - a.z) / (b.z - a.z));
    if (to.z < nearPlane) to = b + (a - b) * ((nearPlane - b.z) / (a.z - b.z));
    const ProjectedPoint p0 = project(context.camera, from), p1 = project(context.camera, to);
    // Liang-Barsky: the parameter range of the segment inside -1..1 on both axes.
    double t0 = 0, t1 = 1;
    const double dx = double(p1.px) - p0.px, dy = double(p1.py) - p0.py;
    const double tests[4][2] = {{-dx, p0.px + 1.0}, {dx, 1.0 - p0.px}, {-dy, p0.py + 1.0}, {dy, 1.0 - p0.py}};
    for (const auto& [q, room] : tests) {
        if (!std::isfinite(q) || !std::isfinite(room)) return false;
        if (q == 0) {
            if (room < 0) return false;
            continue;
        }
        const double t = room / q;
        if (q < 0)
            t0 = std::max(t0, t);
        else
            t1 = std::min(t1, t);
        if (t0 > t1) return false;
    }
    auto at = [&](double t) {
        return ProjectedPoint{std::clamp(static_cast<float>(p0.px + dx * t), -1.0f, 1.0f),
                              std::clamp(static_cast<float>(p0.py + dy * t), -1.0f, 1.0f),
                              static_cast<float>(p0.depth + (double(p1.depth) - p0.depth) * t)};
    };
    pa = at(t0);
    pb = at(t1);
    return true;
}

}  // namespace vz
