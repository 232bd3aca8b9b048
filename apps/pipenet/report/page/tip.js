// The note beside the pointer that tells what it points at.

function elevationsOf(run) {
    return `${height.format(run.startElevation)} → ${height.format(run.endElevation)} m`;
}

function linesAboutRun(run) {
    const size = run.diameter > 0 ? `DN${run.diameter} ` : '';
    return [`${size}${run.material}`.trim(), `${metre.format(run.length)} m`, elevationsOf(run)]
        .filter((text) => text !== '')
        .join(' · ');
}

/** What there is to say about a finding, pipe, well or tank, the most important line first. */
function linesAbout(model, target) {
    if (!target.kind) {
        return [target.name, target.sentence];
    }
    const network = target.network < 0 ? 'in no network' : `network ${target.network + 1}`;
    const lines = [model.nameOf(target), `${model.systemName(target.system)} · ${network}`];
    const runs = target.runs ?? [];
    if (runs.length > 0) {
        lines.push(linesAboutRun(runs[0]));
    }
    if (runs.length > 1) {
        lines.push(`and ${counted(runs.length - 1, 'further run', 'further runs')}`);
    }
    return lines;
}

/** Shows the note at a place of the picture, on the side where there is room; hides it for null. */
function showTip(model, target, place, view) {
    const tip = byId('tip');
    tip.hidden = target === null;
    if (target === null) {
        return;
    }
    const [first, ...rest] = linesAbout(model, target);
    tip.replaceChildren(
        element('strong', {}, first),
        ...rest.map((line) => element('span', {}, line)),
    );
    const isRight = place.x + tip.offsetWidth + 24 < view.width;
    const isBelow = place.y + tip.offsetHeight + 24 < view.height;
    tip.style.left = `${isRight ? place.x + 16 : Math.max(4, place.x - tip.offsetWidth - 16)}px`;
    tip.style.top = `${isBelow ? place.y + 16 : Math.max(4, place.y - tip.offsetHeight - 16)}px`;
}
