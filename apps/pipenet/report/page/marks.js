// The marks of the findings in the picture. Marks that would cover each other are drawn as one
// with their number, the gravest on top; the list of findings is sorted by severity already.

const MARK_RADIUS = 9;
const GROUP_CELL = 20;

/** Groups of findings that lie together on the screen: { x, y, findings }. */
function groupMarks(view, findings) {
    const groups = new Map();
    for (const finding of findings) {
        const [x, y] = [view.screenX(finding.at[0]), view.screenY(finding.at[1])];
        if (x < -20 || y < -20 || x > view.width + 20 || y > view.height + 20) {
            continue;
        }
        const group = groupNear(groups, x, y);
        if (group) {
            group.findings.push(finding);
        } else {
            groups.set(cellKey(x, y), { x, y, findings: [finding] });
        }
    }
    return [...groups.values()];
}

function cellKey(x, y, dx = 0, dy = 0) {
    return (Math.floor(x / GROUP_CELL) + dx) * 65536 + Math.floor(y / GROUP_CELL) + dy;
}

function groupNear(groups, x, y) {
    for (let dx = -1; dx <= 1; ++dx) {
        for (let dy = -1; dy <= 1; ++dy) {
            const group = groups.get(cellKey(x, y, dx, dy));
            if (group && Math.hypot(group.x - x, group.y - y) < GROUP_CELL - 2) {
                return group;
            }
        }
    }
    return null;
}

/** The next finding of the group after the selected one; the first when none of it is selected. */
function nextInGroup(group, selected) {
    return group.findings[(group.findings.indexOf(selected) + 1) % group.findings.length];
}
