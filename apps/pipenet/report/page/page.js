// Puts the page together.

function showTitle(model) {
    document.title = `Check of ${model.drawing}`;
    byId('drawing-name').textContent = model.drawing;
    const found = Object.entries(SEVERITIES)
        .map(([severity, { one, many }]) => [severity, one, many])
        .map(([severity, one, many]) => {
            const count = model.findings.filter((finding) => finding.severity === severity).length;
            return counted(count, one, many);
        });
    const networks = counted(model.networks.length, 'network', 'networks');
    const pipes = counted(model.pipes.length, 'pipe', 'pipes');
    byId('summary').textContent = `${found.join(', ')} · ${pipes} in ${networks}`;
}

function setUpPage() {
    const model = readModel();
    const state = new State(model);
    const colours = new Colours();
    showTitle(model);
    const picture = new Picture(model, state, colours);
    const list = new FindingList(model, state, picture);
    new SystemFigures(model, state, picture);
    new LayerSwitches(model, state);
    new Search(model, state, picture);
    new PictureHands(picture);
    new PictureKeys(picture, state, list);
    picture.onMarkChosen = (finding) => list.reveal(finding);
    setUpTabs();
    setUpTheme(() => {
        colours.forget();
        picture.redraw();
    });
    picture.setUpPrinting(colours);
    window.addEventListener('beforeprint', () => list.list.fillTo(Infinity));
    byId('print').addEventListener('click', () => window.print());
    byId('layers').open = window.innerWidth > 760;
}

setUpPage();
requestAnimationFrame(() => {
    performance.mark('report-interactive');
});
