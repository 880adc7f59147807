# SPDX-License-Identifier: GPL-3.0-or-later
"""Writes the example show's models as LithTech text models (.lta): crate, dancer and drum.

Each model is a node hierarchy in its bind pose, one mesh of flat-shaded blocks, each block
moved wholly by one node, and named animations whose keyframes turn and move the nodes.
Node positions in the hierarchy are in model space; keyframes give each node's place and
turn relative to its parent, as a position and a quaternion (x y z w). Y is up, the puppets
face -Z. Lengths are in world units, a dancer standing some 64 high.
"""

import math
import sys
from pathlib import Path


def turn(axis, degrees):
    """The quaternion of a turn by degrees about the axis 'x', 'y' or 'z'."""
    half = math.radians(degrees) / 2
    q = [0.0, 0.0, 0.0, math.cos(half)]
    q["xyz".index(axis)] = math.sin(half)
    return tuple(q)


def combined(*quaternions):
    """The quaternions applied one after the other, the first outermost."""
    x, y, z, w = 0.0, 0.0, 0.0, 1.0
    for bx, by, bz, bw in quaternions:
        x, y, z, w = (w * bx + x * bw + y * bz - z * by, w * by - x * bz + y * bw + z * bx,
                      w * bz + x * by - y * bx + z * bw, w * bw - x * bx - y * by - z * bz)
    return (x, y, z, w)


class Model:
    def __init__(self, name):
        self.name = name
        self.nodes = []  # (name, parent, position in model space), parents first
        self.vertices, self.normals, self.uvs, self.bones, self.triangles = [], [], [], [], []
        self.animations = []  # (name, times in ms, {node: [(offset, quaternion) per key]})

    def node(self, name, parent, position):
        self.nodes.append((name, parent, position))

    def position(self, name):
        return next(p for n, _, p in self.nodes if n == name)

    def rest(self, name):
        """The node's place relative to its parent in the bind pose."""
        parent = next(up for n, up, _ in self.nodes if n == name)
        here = self.position(name)
        there = self.position(parent) if parent else (0.0, 0.0, 0.0)
        return tuple(a - b for a, b in zip(here, there))

    def face(self, corners, normal, bone):
        """A flat face, its corners turned to run counter-clockwise seen from where the
        normal points. Its texture is projected along the normal's main axis."""
        a, b, c = corners[:3]
        u = [q - p for p, q in zip(a, b)]
        v = [q - p for p, q in zip(a, c)]
        across = (u[1] * v[2] - u[2] * v[1], u[2] * v[0] - u[0] * v[2], u[0] * v[1] - u[1] * v[0])
        if sum(x * n for x, n in zip(across, normal)) < 0:
            corners = corners[::-1]
        first = len(self.vertices)
        main = max(range(3), key=lambda axis: abs(normal[axis]))
        u, v = [axis for axis in range(3) if axis != main]
        for corner in corners:
            self.vertices.append(corner)
            self.normals.append(normal)
            self.uvs.append((corner[u] / 32, corner[v] / 32))
            self.bones.append(bone)
        for i in range(1, len(corners) - 1):
            self.triangles.append((first, first + i, first + i + 1))

    def block(self, bone, centre, size):
        """A box moved by the node `bone`, four corners to each of its six faces."""
        for axis in range(3):
            u, v = [a for a in range(3) if a != axis]
            for sign in (-1.0, 1.0):
                corners = []
                for du, dv in ((-1, -1), (1, -1), (1, 1), (-1, 1)):
                    offset = [0.0, 0.0, 0.0]
                    offset[axis], offset[u], offset[v] = sign, du, dv
                    corners.append(tuple(c + o * l / 2 for c, o, l in zip(centre, offset, size)))
                normal = [0.0, 0.0, 0.0]
                normal[axis] = sign
                self.face(corners, tuple(normal), bone)

    def drum_shell(self, bone, centre, radius, height, sides):
        """An upright prism of `sides` faces with its top and bottom."""
        cx, cy, cz = centre
        ring = [(cx + radius * math.cos(2 * math.pi * i / sides),
                 cz + radius * math.sin(2 * math.pi * i / sides)) for i in range(sides)]
        bottom, top = cy - height / 2, cy + height / 2
        for i in range(sides):
            (x0, z0), (x1, z1) = ring[i], ring[(i + 1) % sides]
            middle = 2 * math.pi * (i + 0.5) / sides
            self.face([(x0, bottom, z0), (x0, top, z0), (x1, top, z1), (x1, bottom, z1)],
                      (math.cos(middle), 0.0, math.sin(middle)), bone)
        self.face([(x, top, z) for x, z in ring], (0.0, 1.0, 0.0), bone)
        self.face([(x, bottom, z) for x, z in ring], (0.0, -1.0, 0.0), bone)

    def animation(self, name, times, keys):
        """keys: {node: [quaternion or (offset, quaternion), one per time]}; nodes left out
        keep their bind pose; an offset is added to the node's place."""
        frames = {}
        for node, _, _ in self.nodes:
            frames[node] = []
            for key in keys.get(node, [None] * len(times)):
                offset, quaternion = (0, 0, 0), (0.0, 0.0, 0.0, 1.0)
                if key is not None and len(key) == 2:
                    offset, quaternion = key
                elif key is not None:
                    quaternion = key
                place = tuple(a + b for a, b in zip(self.rest(node), offset))
                frames[node].append((place, quaternion))
        self.animations.append((name, times, frames))

    def lta(self):
        """The model in the LithTech text form."""
        out = []
        w = out.append
        numbers = lambda values: " ".join(f"{v:.6f}" for v in values)
        lows = [min(v[a] for v in self.vertices) for a in range(3)]
        highs = [max(v[a] for v in self.vertices) for a in range(3)]
        dims = [h - lo for h, lo in zip(highs, lows)]
        radius = max(math.dist((0, 0, 0), v) for v in self.vertices)
        shape = self.name + "Shape"
        node_names = [n for n, _, _ in self.nodes]

        w("\n(lt-model-0 \n\t(on-load-cmds (\n\t\t(anim-bindings (")
        for name, _, _ in self.animations:
            w(f'\t\t\t(anim-binding \n\t\t\t\t(name "{name}" )\n\t\t\t\t(dims \n'
              f"\t\t\t\t\t({numbers(dims)} ))\n\t\t\t\t(translation \n"
              "\t\t\t\t\t(0.000000 0.000000 0.000000 ))\n\t\t\t\t(interp-time 200 )\n\t\t\t )")
        out[-1] += "))"
        w("\t\t(set-node-flags (")
        w("\n".join(f'\t\t\t("{n}" 0 )' for n in node_names) + "))")
        w(f'\t\t(add-deformer \n\t\t\t(skel-deformer \n\t\t\t\t(target "{shape}" )')
        w("\t\t\t\t(influences \n\t\t\t\t\t(" + " ".join(f'"{n}"' for n in node_names) + " ))")
        w("\t\t\t\t(weightsets (")
        w("\n".join(f"\t\t\t\t\t({node_names.index(b)} 1.000000 )" for b in self.bones) + "))))")
        w('\t\t(set-command-string "" )')
        w(f"\t\t(set-global-radius {radius:.6f} )))")

        def hierarchy(parent, depth):
            tabs = "\t" * depth
            children = [(n, place) for n, up, place in self.nodes if up == parent]
            if not children:
                return ""
            text = f"\n{tabs}(children ("
            for name, (x, y, z) in children:
                text += (f'\n{tabs}\t(transform "{name}" \n{tabs}\t\t(matrix (\n'
                         f"{tabs}\t\t\t(1.000000 0.000000 0.000000 {x:.6f} )\n"
                         f"{tabs}\t\t\t(0.000000 1.000000 0.000000 {y:.6f} )\n"
                         f"{tabs}\t\t\t(0.000000 0.000000 1.000000 {z:.6f} )\n"
                         f"{tabs}\t\t\t(0.000000 0.000000 0.000000 1.000000 )))")
                text += hierarchy(name, depth + 2) + " )"
            return text + "))"

        w("\t(hierarchy " + hierarchy(None, 2) + ")")
        w(f'\t(shape "{shape}" \n\t\t(geometry \n\t\t\t(mesh "{shape}" ')
        for form, rows in (("vertex", self.vertices), ("normals", self.normals),
                           ("uvs", self.uvs)):
            w(f"\t\t\t\t({form} (")
            w("\n".join(f"\t\t\t\t\t({numbers(r)} )" for r in rows) + "))")
        corners = [str(i) for t in self.triangles for i in t]
        lines = [" ".join(corners[i:i + 15]) for i in range(0, len(corners), 15)]
        for form in ("tex-fs", "tri-fs"):
            w(f"\t\t\t\t({form} \n\t\t\t\t\t(" + "\n\t\t\t\t\t ".join(lines) + " ))")
        out[-1] += "))"
        w("\t\t(appearance \n\t\t\t(material \n\t\t\t\t(specular-power 5.000000 )\n"
          "\t\t\t\t(specular-scale 1.000000 )\n\t\t\t\t(texture-index 0 )\n"
          "\t\t\t\t(diffuse \n\t\t\t\t\t(0.800000 0.800000 0.800000 1.000000 ))\n"
          "\t\t\t\t(ambient \n\t\t\t\t\t(0.200000 0.200000 0.200000 ))\n"
          "\t\t\t\t(emissive \n\t\t\t\t\t(0.000000 0.000000 0.000000 ))\n"
          "\t\t\t\t(specular \n\t\t\t\t\t(0.000000 0.000000 0.000000 ))\n"
          "\t\t\t\t(shininess 0.000000 ))))")
        for name, times, frames in self.animations:
            w(f'\t(animset "{name}" \n\t\t(keyframe \n\t\t\t(keyframe \n\t\t\t\t(times \n'
              f"\t\t\t\t\t({' '.join(str(t) for t in times)} ))\n\t\t\t\t(values \n"
              f"\t\t\t\t\t({' '.join(chr(34) * 2 for _ in times)} ))))\n\t\t(anims (")
            for node in node_names:
                pairs = ")(".join(f"\n\t\t\t\t\t\t({numbers(p)} )\n\t\t\t\t\t\t({numbers(q)} )"
                                  for p, q in frames[node])
                w(f'\t\t\t(anim \n\t\t\t\t(parent "{node}" )\n\t\t\t\t(frames \n'
                  f"\t\t\t\t\t(posquat (({pairs} )))))")
            out[-1] += ")))"
        out[-1] += ")\n"
        return "\n".join(out)


def crate():
    """A crate with a lid hinged at its back edge: it sleeps, shakes awake and opens."""
    m = Model("crate")
    m.node("crate", None, (0.0, 0.0, 0.0))
    m.node("lid", "crate", (0.0, 20.0, 10.0))
    m.block("crate", (0.0, 10.0, 0.0), (24.0, 20.0, 20.0))
    m.block("lid", (0.0, 21.0, 0.0), (25.0, 2.0, 21.0))
    m.animation("closed", [0, 1000], {})
    m.animation("shake", [0, 150, 300, 450, 600, 750, 900], {
        "crate": [turn("z", a) for a in (0, 6, -6, 5, -5, 2, 0)],
        "lid": [turn("x", a) for a in (0, 8, 0, 12, 0, 6, 0)]})
    m.animation("open", [0, 600, 1200], {"lid": [turn("x", a) for a in (0, 70, 110)]})
    m.animation("hop", [0, 250, 500, 750], {
        "crate": [((0, h, 0), turn("x", 0)) for h in (0, 8, 0, 0)],
        "lid": [turn("x", a) for a in (0, 15, 0, 4)]})
    return m


def dancer():
    """A dancer with hips, spine, head, two arms and two legs, each arm and leg in two parts."""
    m = Model("dancer")
    m.node("hips", None, (0.0, 34.0, 0.0))
    m.node("spine", "hips", (0.0, 37.0, 0.0))
    m.node("head", "spine", (0.0, 55.0, 0.0))
    for side, x in (("l", 1.0), ("r", -1.0)):
        m.node(f"{side}_upperarm", "spine", (9.0 * x, 53.0, 0.0))
        m.node(f"{side}_forearm", f"{side}_upperarm", (9.0 * x, 42.0, 0.0))
        m.node(f"{side}_thigh", "hips", (4.0 * x, 32.0, 0.0))
        m.node(f"{side}_shin", f"{side}_thigh", (4.0 * x, 17.0, 0.0))
    m.block("hips", (0.0, 34.0, 0.0), (14.0, 6.0, 8.0))
    m.block("spine", (0.0, 46.0, 0.0), (15.0, 16.0, 8.0))
    m.block("head", (0.0, 60.0, -0.5), (8.0, 9.0, 8.5))
    for side, x in (("l", 1.0), ("r", -1.0)):
        m.block(f"{side}_upperarm", (9.5 * x, 47.5, 0.0), (4.0, 11.0, 4.0))
        m.block(f"{side}_forearm", (9.5 * x, 36.5, 0.0), (3.5, 11.0, 3.5))
        m.block(f"{side}_thigh", (4.0 * x, 24.5, 0.0), (5.5, 15.0, 5.5))
        m.block(f"{side}_shin", (4.0 * x, 9.0, 0.0), (5.0, 16.0, 5.0))
        m.block(f"{side}_shin", (4.0 * x, 1.0, -2.0), (5.0, 2.0, 9.0))  # the foot
    # Arms hang along -Y: a turn about +Z lifts the left arm sideways, about -Z the right.
    m.animation("idle", [0, 1000, 2000], {
        "spine": [turn("x", a) for a in (0, -3, 0)],
        "head": [turn("y", a) for a in (0, 8, 0)],
        "l_upperarm": [turn("z", a) for a in (6, 9, 6)],
        "r_upperarm": [turn("z", a) for a in (-6, -9, -6)]})
    m.animation("wave", [0, 400, 800, 1200, 1600], {
        "r_upperarm": [turn("z", a) for a in (-6, -150, -155, -150, -6)],
        "r_forearm": [turn("z", a) for a in (0, 25, -25, 25, 0)],
        "head": [turn("z", a) for a in (0, -6, -6, -6, 0)]})
    # Forward is -Z: a negative turn about X leans the upper body forward.
    m.animation("bow", [0, 700, 1300, 2000], {
        "spine": [turn("x", a) for a in (0, -50, -50, 0)],
        "head": [turn("x", a) for a in (0, -15, -15, 0)],
        "l_upperarm": [turn("x", a) for a in (0, -20, -20, 0)],
        "r_upperarm": [turn("x", a) for a in (0, -20, -20, 0)],
        "hips": [((0, 0, d), turn("x", 0)) for d in (0, 2, 2, 0)]})
    # A stride: one leg swings forward while the other pushes back, the arms against them.
    swing = (25, 0, -25, 0, 25)
    m.animation("walk", [0, 300, 600, 900, 1200], {
        "hips": [((0, b, 0), turn("y", s / 5)) for b, s in zip((0, 1.5, 0, 1.5, 0), swing)],
        "l_thigh": [turn("x", s) for s in swing],
        "r_thigh": [turn("x", -s) for s in swing],
        "l_shin": [turn("x", a) for a in (-10, -35, -5, 0, -10)],
        "r_shin": [turn("x", a) for a in (-5, 0, -10, -35, -5)],
        "l_upperarm": [combined(turn("z", 6), turn("x", -s * 0.8)) for s in swing],
        "r_upperarm": [combined(turn("z", -6), turn("x", s * 0.8)) for s in swing]})
    return m


def drum():
    """A drum with two sticks hinged above its rim, which beat its head in turn."""
    m = Model("drum")
    m.node("drum", None, (0.0, 0.0, 0.0))
    for name, x in (("stick_left", 1.0), ("stick_right", -1.0)):
        m.node(name, "drum", (15.0 * x, 19.0, 0.0))
        m.block(name, (9.5 * x, 19.0, 0.0), (11.0, 1.2, 1.2))
    m.drum_shell("drum", (0.0, 8.0, 0.0), 10.0, 16.0, 12)
    # A stick's tip lies towards the middle: a turn about +Z lowers the left one, -Z the right.
    m.animation("rest", [0, 1000], {})
    m.animation("beat", [0, 150, 300, 450, 600], {
        "stick_left": [turn("z", a) for a in (0, 17, 0, 0, 0)],
        "stick_right": [turn("z", a) for a in (0, 0, 0, -17, 0)],
        "drum": [((0, d, 0), turn("y", 0)) for d in (0, -0.3, 0, -0.3, 0)]})
    m.animation("roll", [0, 60, 120, 180, 240, 300, 360, 420, 480], {
        "stick_left": [turn("z", a) for a in (0, 15, 0, 15, 0, 15, 0, 15, 0)],
        "stick_right": [turn("z", a) for a in (-15, 0, -15, 0, -15, 0, -15, 0, -15)]})
    return m


def main():
    folder = Path(sys.argv[1])
    folder.mkdir(parents=True, exist_ok=True)
    for model in (crate(), dancer(), drum()):
        path = folder / f"{model.name}.lta"
        path.write_text(model.lta(), encoding="ascii", newline="\n")
        print(f"{path}: {len(model.nodes)} nodes, {len(model.animations)} animations, "
              f"{len(model.triangles)} triangles")


if __name__ == "__main__":
    main()
