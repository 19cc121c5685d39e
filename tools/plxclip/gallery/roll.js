// Drawings: the small pictures of the cards, waveforms, and the large piano roll.
gallery.roll = (() => {
    const data = gallery.data;

    // Whatever comes from a clip becomes text or a number in an attribute, never markup.
    const svg = (name, attributes = {}, ...children) => {
        const element = document.createElementNS('http://www.w3.org/2000/svg', name);
        for (const [key, value] of Object.entries(attributes)) {
            element.setAttribute(key, value);
        }
        element.append(...children);
        return element;
    };

    const endOf = note => note.pos + note.duration;
    const round = number => Math.round(number * 10) / 10;

    // From the first thing of a part to the last, in ticks.
    const spanOf = part => part.notes.reduce(
        (span, note) => ({begin: Math.min(span.begin, note.pos), end: Math.max(span.end, endOf(note))}),
        {begin: 0, end: part.duration});

    const rangeOf = notes => notes.reduce(
        (range, note) => ({low: Math.min(range.low, note.number), high: Math.max(range.high, note.number)}),
        {low: 127, high: 0});

    // --- Pictures of cards ---------------------------------------------------------------------------

    const pictureWidth = 300;
    const pictureHeight = 84;
    const pictureRows = 14; // at least, so that a melody of two notes does not jump
    const margin = 8;

    const notesPath = part => {
        const span = spanOf(part);
        const range = rangeOf(part.notes);
        const rows = Math.max(range.high - range.low, pictureRows);
        const middle = (range.high + range.low) / 2;
        const scale = (pictureWidth - 2 * margin) / (span.end - span.begin);
        return part.notes.map(note => {
            const x = margin + (note.pos - span.begin) * scale;
            const y = pictureHeight / 2 - (note.number - middle) / rows * (pictureHeight - 2 * margin);
            return `M${round(x)} ${round(y)}h${round(Math.max(note.duration * scale - 1, 1))}`;
        }).join('');
    };

    // Peaks are lowest and highest in turn, from -127 to 127.
    const wavePath = (peaks, width, height) => {
        const step = width / (peaks.length / 2);
        const y = value => round(height / 2 * (1 - 0.92 * value / 127));
        let upper = '';
        let lower = '';
        for (let i = 0; i < peaks.length; i += 2) {
            const x = round((i / 2 + 0.5) * step);
            upper += `${upper === '' ? 'M' : 'L'}${x} ${y(peaks[i + 1])}`;
            lower = `L${x} ${y(peaks[i])}${lower}`;
        }
        return upper === '' ? '' : `${upper}${lower}Z`;
    };

    const drawing = (className, width, height, path) => svg('svg', {
        class: className, viewBox: `0 0 ${width} ${height}`, preserveAspectRatio: 'none',
        'aria-hidden': 'true',
    }, svg('path', {d: path}));

    const wave = (className, peaks, width, height) =>
        drawing(className, width, height, wavePath(peaks, width, height));

    const picture = part => {
        if (part.wave?.peaks) {
            return wave('picture wave', part.wave.peaks, pictureWidth, pictureHeight);
        }
        const path = part.notes ? notesPath(part) : '';
        return drawing('picture', pictureWidth, pictureHeight, path);
    };

    // --- The piano roll ------------------------------------------------------------------------------

    const rowHeight = 16;
    const headHeight = 20;
    const laneHeight = 48;
    const flatHeight = 18;
    const laneGap = 8;
    const gutter = 116;
    const keyWidth = 42;
    const widest = 60000; // no browser draws much more

    // A lane with one value all the time needs only a line of text.
    const isFlat = lane => lane.events.every(event => event.value === lane.events[0].value);

    const lanesOf = part => part.lanes.filter(lane => lane.events.length > 0);

    const makeLayout = (part, pixelsPerQuarter) => {
        const ticksPerBeat = data.ticksPerQuarter * 4 / data.meter[1];
        const ticksPerBar = ticksPerBeat * data.meter[0];
        const span = spanOf(part);
        const begin = Math.floor(span.begin / ticksPerBar) * ticksPerBar;
        const end = Math.ceil(span.end / ticksPerBar) * ticksPerBar;
        const range = part.notes.length > 0 ? rangeOf(part.notes) : {low: 62, high: 70};
        const scale = Math.min(pixelsPerQuarter / data.ticksPerQuarter, widest / (end - begin));
        const layout = {
            begin, end, ticksPerBeat, ticksPerBar, scale,
            low: Math.max(range.low - 2, 0), high: Math.min(range.high + 2, 127),
            width: (end - begin) * scale,
            x: tick => (tick - begin) * scale,
            y: number => headHeight + (layout.high - number) * rowHeight,
            lanes: [],
        };
        layout.bottom = layout.y(layout.low) + rowHeight;
        layout.height = lanesOf(part).reduce((top, lane) => {
            const height = isFlat(lane) ? flatHeight : laneHeight;
            layout.lanes.push({lane, top, height});
            return top + height + laneGap;
        }, layout.bottom + laneGap + 4);
        return layout;
    };

    const rows = layout => {
        const result = [];
        for (let number = layout.low; number <= layout.high; ++number) {
            result.push(svg('rect', {
                class: data.isBlack(number) ? 'row black' : 'row', x: 0, y: layout.y(number),
                width: layout.width, height: rowHeight,
            }));
        }
        return result;
    };

    // Lines that would stand too close are left out.
    const gridLines = (layout, ticks, className) => {
        const least = 6;
        const step = ticks * Math.max(1, Math.ceil(least / (ticks * layout.scale)));
        let path = '';
        for (let tick = layout.begin; tick <= layout.end; tick += step) {
            path += `M${round(layout.x(tick))} ${headHeight}V${round(layout.height)}`;
        }
        return svg('path', {class: className, d: path});
    };

    const barNumbers = layout => {
        const least = 28;
        const step = Math.max(1, Math.ceil(least / (layout.ticksPerBar * layout.scale)));
        const result = [];
        for (let bar = Math.round(layout.begin / layout.ticksPerBar);
            bar * layout.ticksPerBar < layout.end; bar += step) {
            result.push(svg('text', {
                class: 'bar-number', x: round(layout.x(bar * layout.ticksPerBar) + 3), y: 14,
            }, String(bar + 1)));
        }
        return result;
    };

    const beyondEnd = (part, layout) => svg('rect', {
        class: 'beyond', x: round(layout.x(part.duration)), y: headHeight,
        width: Math.max(0, layout.width - layout.x(part.duration)), height: layout.height - headHeight,
    });

    const wide = /[\u1100-\u115f\u2e80-\ua4cf\uac00-\ud7a3\uf900-\ufaff\ufe30-\ufe6f\uff00-\uff60]/;
    const textWidth = (text, size) =>
        [...text].reduce((width, letter) => width + (wide.test(letter) ? 1.05 : 0.62) * size, 0);

    // The text in the greatest size that fits, or nothing when it could not be read.
    const fitting = (text, className, size, smallest, room, x, y) => {
        const fitted = Math.min(size, size * room / Math.max(textWidth(text, size), 0.1));
        return text === '' || fitted < smallest ? [] : [
            svg('text', {class: className, x: round(x), y: round(y), style: `font-size:${round(fitted)}px`},
                text)];
    };

    // The words of a note may go on until the next note begins.
    const roomsOf = (notes, layout) => notes.map((note, index) => {
        const next = notes[index + 1]?.pos ?? 0;
        return Math.max(note.duration, next - note.pos) * layout.scale - 5;
    });

    // A curve of a vibrato runs straight from point to point.
    const valueAt = (points, pos, usual) => {
        const next = points.findIndex(point => point.pos > pos);
        if (points.length === 0) {
            return usual;
        }
        if (next <= 0) {
            return points[next === 0 ? 0 : points.length - 1].value;
        }
        const [a, b] = [points[next - 1], points[next]];
        return a.value + (b.value - a.value) * (pos - a.pos) / (b.pos - a.pos);
    };

    // Deeper waves are higher, faster ones shorter.
    const vibratoPath = (note, layout) => {
        const begin = endOf(note) - note.vibrato.duration;
        const length = note.vibrato.duration * layout.scale;
        const middle = layout.y(note.number) + rowHeight - 4;
        let phase = 0;
        let path = '';
        for (let x = 0; x <= length; x += 1) {
            const pos = x / layout.scale;
            const height = 0.6 + 3.4 * valueAt(note.vibrato.depths, pos, 64) / 127;
            path += `${path === '' ? 'M' : 'L'}${round(layout.x(begin) + x)} ` +
                `${round(middle - height * Math.sin(phase))}`;
            phase += 2 * Math.PI / (15 - 10 * valueAt(note.vibrato.rates, pos, 64) / 127);
        }
        return path;
    };

    const mark = (x, y, size) => svg('path', {d: `M${round(x)} ${y}h${size}L${round(x)} ${y + Math.abs(size)}z`});

    // Marks in the corners: an attack at the left, a release at the right.
    const marksOf = (note, layout) => {
        const y = layout.y(note.number) + 1;
        const size = 5;
        return [
            ...(note.attack.component ? [mark(layout.x(note.pos) + 1, y, size)] : []),
            ...(note.release.component ? [mark(layout.x(endOf(note)) - 1, y, -size)] : []),
        ];
    };

    const hintOf = note => `${note.lyric} [${note.phoneme}] ${data.pitchText(note.number)}, ` +
        `at ${note.pos}, ${note.duration} ticks, velocity ${note.velocity}`;

    const noteGroup = (note, room, layout) => {
        const [x, y] = [layout.x(note.pos), layout.y(note.number)];
        const width = Math.max(note.duration * layout.scale, 1);
        const group = svg('g', {class: note.vibrato.duration > 0 ? 'note swinging' : 'note'},
            svg('title', {}, hintOf(note)),
            svg('rect', {
                x: round(x), y, width: round(width), height: rowHeight, rx: 2.5,
                'fill-opacity': round(0.3 + 0.7 * note.velocity / 127),
            }));
        if (note.vibrato.duration > 0) {
            group.append(svg('path', {class: 'vibrato', d: vibratoPath(note, layout)}));
        }
        group.append(...marksOf(note, layout),
            ...fitting(note.lyric, 'lyric', 11, 6, room, x + 4, y + 11.5),
            ...fitting(note.phoneme, 'phoneme', 9, 7, room, x + 4, y + rowHeight + 9));
        return group;
    };

    // --- Lanes ---------------------------------------------------------------------------------------

    // A value holds until the next event; before the first one there is none.
    const steps = ({lane, top, height}, layout) => {
        const inset = 4;
        const y = value => round(top + inset +
            (height - 2 * inset) * (lane.most - value) / (lane.most - lane.least));
        const base = lane.least < 0 ? y(0) : top + height;
        let path = '';
        for (const event of lane.events) {
            const x = round(layout.x(Math.max(event.pos, layout.begin)));
            path += path === '' ? `M${x} ${y(event.value)}` : `H${x}V${y(event.value)}`;
        }
        const first = round(layout.x(Math.max(lane.events[0].pos, layout.begin)));
        path += `H${round(layout.width)}`;
        return {path, area: `${path}V${base}H${first}z`, zero: lane.least < 0 ? y(0) : y((lane.least + lane.most) / 2)};
    };

    const laneGroup = (place, layout) => {
        const {lane, top, height} = place;
        const frame = svg('rect', {class: 'frame', x: 0, y: top, width: layout.width, height});
        if (isFlat(lane)) {
            return svg('g', {}, frame, svg('text', {x: 6, y: top + 13, class: 'lane-text'},
                `${lane.events[0].value} throughout`));
        }
        const drawn = steps(place, layout);
        return svg('g', {}, frame,
            svg('path', {class: 'zero', d: `M0 ${drawn.zero}H${round(layout.width)}`}),
            svg('path', {class: 'area', d: drawn.area}), svg('path', {class: 'curve', d: drawn.path}));
    };

    const laneLabels = ({lane, top, height}) => {
        const x = gutter - 8;
        const label = (y, className, text) => svg('text', {class: className, x, y}, text);
        const name = label(top + height / 2 + 4, 'lane-name', lane.name);
        return isFlat(lane) ? [name] : [
            label(top + 10, 'lane-value', String(lane.most)), name,
            label(top + height - 3, 'lane-value', String(lane.least))];
    };

    // --- All together --------------------------------------------------------------------------------

    const keys = layout => {
        const result = svg('svg', {width: gutter, height: layout.height, class: 'keys', 'aria-hidden': 'true'});
        for (let number = layout.low; number <= layout.high; ++number) {
            result.append(svg('rect', {
                class: data.isBlack(number) ? 'key black' : 'key', x: gutter - keyWidth,
                y: layout.y(number), width: data.isBlack(number) ? keyWidth * 0.62 : keyWidth,
                height: rowHeight,
            }));
            if (number % 12 === 0) {
                result.append(svg('text', {class: 'pitch', x: gutter - 4, y: layout.y(number) + 12},
                    data.pitchText(number)));
            }
        }
        layout.lanes.forEach(lane => result.append(...laneLabels(lane)));
        return result;
    };

    const labelOf = (part, layout) => {
        const bars = Math.round((layout.end - layout.begin) / layout.ticksPerBar);
        const range = rangeOf(part.notes);
        return part.notes.length === 0 ? 'Piano roll without notes' :
            `Piano roll: ${part.notes.length} notes from ${data.pitchText(range.low)} to ` +
            `${data.pitchText(range.high)}, ${bars} bars. The table of notes below has them all.`;
    };

    // The roll, with the moving line, and the groups of the notes in the order of the notes.
    const roll = (part, pixelsPerQuarter) => {
        const layout = makeLayout(part, pixelsPerQuarter);
        const rooms = roomsOf(part.notes, layout);
        const notes = part.notes.map((note, index) => noteGroup(note, rooms[index], layout));
        const now = svg('line', {class: 'now', x1: 0, x2: 0, y1: 0, y2: layout.height});
        const sheet = svg('svg', {
            width: layout.width, height: layout.height, role: 'img', 'aria-label': labelOf(part, layout),
        }, ...rows(layout), gridLines(layout, layout.ticksPerBeat, 'grid'),
            gridLines(layout, layout.ticksPerBar, 'grid bars'), ...barNumbers(layout),
            beyondEnd(part, layout), ...notes,
            ...layout.lanes.map(lane => laneGroup(lane, layout)), now);
        return {layout, keys: keys(layout), sheet, notes, now};
    };

    return {picture, wave, roll, spanOf, endOf, valueAt};
})();
