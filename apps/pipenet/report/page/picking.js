// What lies under a place of the screen.

const REACH = 7; // pixels

function distanceToSegment(px, py, ax, ay, bx, by) {
    const [dx, dy] = [bx - ax, by - ay];
    const square = dx * dx + dy * dy;
    const along = square === 0 ? 0 : ((px - ax) * dx + (py - ay) * dy) / square;
    const part = Math.min(1, Math.max(0, along));
    return Math.hypot(ax + part * dx - px, ay + part * dy - py);
}

function distanceToPipe(pipe, x, y) {
    let least = Infinity;
    const { points } = pipe;
    for (let i = 2; i < points.length; i += 2) {
        least = Math.min(
            least,
            distanceToSegment(x, y, points[i - 2], points[i - 1], points[i], points[i + 1]),
        );
    }
    return least;
}

function distanceToNode(node, x, y) {
    if (node.kind === 'tank') {
        const dx = Math.max(node.box.left - x, 0, x - node.box.right);
        const dy = Math.max(node.box.bottom - y, 0, y - node.box.top);
        return Math.hypot(dx, dy);
    }
    return Math.max(0, Math.hypot(node.at[0] - x, node.at[1] - y) - node.radius);
}

function isNear(box, x, y, reach) {
    return (
        x >= box.left - reach &&
        x <= box.right + reach &&
        y >= box.bottom - reach &&
        y <= box.top + reach
    );
}

/** The nearest of the items within `reach` of the place in the drawing; null for none. */
function nearest(items, x, y, reach, distanceTo) {
    let found = null;
    let least = reach;
    for (const item of items) {
        if (isNear(item.box, x, y, least)) {
            const distance = distanceTo(item, x, y);
            if (distance <= least) {
                [found, least] = [item, distance];
            }
        }
    }
    return found;
}

/** The group of marks at the place on the screen; null for none. */
function marksAt(groups, px, py) {
    const isThere = ({ x, y }) => Math.hypot(x - px, y - py) <= MARK_RADIUS + 2;
    return groups.find(isThere) ?? null;
}

/** The well, tank or pipe at the place on the screen; null for none. */
function entityAt(model, state, view, px, py) {
    const [x, y] = [view.drawingX(px), view.drawingY(py)];
    const reach = REACH / view.scale;
    const shown = (item) => state.showsItem(item);
    return (
        nearest(model.nodes.filter(shown), x, y, reach, distanceToNode) ??
        nearest(model.pipes.filter(shown), x, y, reach, distanceToPipe)
    );
}
