// Tables of what a clip has: for those who want the numbers, and for screen readers.
gallery.tables = (() => {
    const {data, cards} = gallery;
    const {make} = cards;
    const mostRows = 1000; // a browser is slow with more

    const numberText = value => typeof value === 'number' ? String(Math.round(value * 1e6) / 1e6)
        : value === true ? 'yes' : value === false ? 'no' : value ?? 'none';

    const table = (headings, rows, numbers = []) => {
        const cell = (name, text, column) =>
            make(name, numbers.includes(column) ? 'number' : '', text);
        const head = make('tr', '', ...headings.map((text, column) => cell('th', text, column)));
        head.querySelectorAll('th').forEach(each => each.setAttribute('scope', 'col'));
        const body = rows.map(row => make('tr', '', ...row.map((text, column) => cell('td', text, column))));
        return make('div', 'scrolled', make('table', '', make('thead', '', head), make('tbody', '', ...body)));
    };

    const effectRows = effects => effects.flatMap(([kind, effect]) => [
        [kind, effect.id, '', ''],
        ...effect.parameters.map(each => ['', '', each.name, numberText(each.value)])]);

    const ofEffects = part => {
        const effects = [
            ...(part.midiEffects ?? []).map(effect => ['MIDI', effect]),
            ...(part.audioEffects ?? []).map(effect => ['audio', effect])];
        return effects.length === 0 ? []
            : [table(['Kind', 'Effect', 'Parameter', 'Value'], effectRows(effects))];
    };

    const dvqmText = (name, dvqm) => dvqm.component
        ? [`${name} ${dvqm.component} (${dvqm.levelNames.join(', ')})`] : [];

    const curveText = points => points.map(point => `${point.pos}: ${point.value}`).join(', ');

    const vibratoText = vibrato => vibrato.duration === 0 ? [] : [
        `vibrato of type ${vibrato.type}, ${vibrato.duration} ticks` +
        (vibrato.depths.length > 0 ? `, depth ${curveText(vibrato.depths)}` : '') +
        (vibrato.rates.length > 0 ? `, rate ${curveText(vibrato.rates)}` : '')];

    const alsoText = note => [
        ...vibratoText(note.vibrato), ...dvqmText('attack', note.attack), ...dvqmText('release', note.release),
        ...(note.singingSkill.duration > 0 ? [`skill of ${note.singingSkill.duration} ticks, ` +
            `weights ${note.singingSkill.pre} and ${note.singingSkill.post}`] : []),
        ...(note.isProtected ? ['protected'] : []),
    ].join('; ');

    const valuesOf = note => Object.entries({...note.expression, ...note.ai});

    // Values that all notes share are said once.
    const sharedNames = notes => valuesOf(notes[0])
        .filter(([name, value]) => notes.every(note => ({...note.expression, ...note.ai})[name] === value))
        .map(([name]) => name);

    const valueText = (note, wanted) => valuesOf(note).filter(([name]) => wanted(name))
        .map(([name, value]) => `${name} ${numberText(value)}`).join(', ');

    const noteRow = (note, shared) => [
        String(note.pos), String(note.duration), data.pitchText(note.number), String(note.velocity),
        note.lyric, note.phoneme, note.language === null ? 'none' : data.languageText(note.language),
        [alsoText(note), valueText(note, name => !shared.includes(name))].filter(text => text).join('; '),
    ];

    const noteTable = notes => {
        const shared = sharedNames(notes);
        const all = valueText(notes[0], name => shared.includes(name));
        const rest = notes.length - mostRows;
        return make('div', '', ...(all ? [make('p', '', `Every note: ${all}.`)] : []),
            table(['Position', 'Length', 'Pitch', 'Velocity', 'Lyric', 'Phonemes', 'Language', 'Also'],
                notes.slice(0, mostRows).map(note => noteRow(note, shared)), [0, 1, 3]),
            ...(rest > 0 ? [make('p', '', `and ${rest} more`)] : []));
    };

    // A table that is made when someone opens it, because it may be long.
    const later = (title, makeTable) => {
        const box = make('details', '', make('summary', '', title));
        box.addEventListener('toggle', () => box.append(makeTable()), {once: true});
        return box;
    };

    const laneRow = lane => [lane.name, `${lane.least} to ${lane.most}`, String(lane.events.length),
        curveText(lane.events.slice(0, mostRows))];

    const laneTable = lanes => table(
        ['Controller', 'Values', 'Events', 'Position and value'], lanes.map(laneRow), [2]);

    const ofNotes = part => part.notes.length === 0 ? []
        : [later(`Table of the ${part.notes.length} notes`, () => noteTable(part.notes))];

    const ofLanes = part => {
        const lanes = part.lanes.filter(lane => lane.events.length > 0);
        return lanes.length === 0 ? []
            : [later(`Table of the ${lanes.length} controllers`, () => laneTable(lanes))];
    };

    return {ofEffects, ofNotes, ofLanes};
})();
