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

    // Each key has its place below the top, folds between ranges theirs.
    const placesOf = (ranges, rowHeight, foldHeight) => {
        const tops = new Map();
        const folds = [];
        let top = 0;
        ranges.forEach((range, index) => {
            if (index > 0) {
                folds.push({top, keys: ranges[index - 1].low - range.high - 1});
                top += foldHeight;
            }
            for (let number = range.high; number >= range.low; --number) {
                tops.set(number, top);
                top += rowHeight;
            }
        });
        return {tops, folds, height: top};
    };

    // --- Pictures of cards ---------------------------------------------------------------------------

    const pictureWidth = 300;
    const pictureHeight = 84;
    const pictureRows = 14; // at least, so that a melody of two notes does not jump
    const margin = 8;

    const notesPath = part => {
        const span = spanOf(part);
        const places = placesOf(part.keys, 1, 2);
        const rows = Math.max(places.height, pictureRows);
        const scale = (pictureWidth - 2 * margin) / (span.end - span.begin);
        return part.notes.map(note => {
            const x = margin + (note.pos - span.begin) * scale;
            const place = places.tops.get(note.number) + 0.5 - places.height / 2;
            const y = pictureHeight / 2 + place / rows * (pictureHeight - 2 * margin);
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

    const rowHeight = 18;
    const foldHeight = 12;
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
        const ticksPerBeat = data.ticksPerQuarter * 4 / part.meter[1];
        const ticksPerBar = ticksPerBeat * part.meter[0];
        const span = spanOf(part);
        const begin = Math.floor(span.begin / ticksPerBar) * ticksPerBar;
        const end = Math.ceil(span.end / ticksPerBar) * ticksPerBar;
        const scale = Math.min(pixelsPerQuarter / data.ticksPerQuarter, widest / (end - begin));
        const places = placesOf(part.keys, rowHeight, foldHeight);
        const layout = {
            begin, end, ticksPerBeat, ticksPerBar, scale,
            width: (end - begin) * scale,
            x: tick => (tick - begin) * scale,
            y: number => headHeight + places.tops.get(number),
            numbers: [...places.tops.keys()],
            folds: places.folds.map(fold => ({...fold, top: headHeight + fold.top})),
            lanes: [],
        };
        layout.bottom = headHeight + places.height;
        layout.height = lanesOf(part).reduce((top, lane) => {
            const height = isFlat(lane) ? flatHeight : laneHeight;
            layout.lanes.push({lane, top, height});
            return top + height + laneGap;
        }, layout.bottom + laneGap + 4);
        return layout;
    };

    const rows = layout => layout.numbers.map(number => svg('rect', {
        class: data.isBlack(number) ? 'row black' : 'row', x: 0, y: layout.y(number),
        width: layout.width, height: rowHeight,
    }));

    const folds = layout => layout.folds.map(fold => svg('rect', {
        class: 'fold', x: 0, y: fold.top, width: layout.width, height: foldHeight,
    }));

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

    // The text in the greatest size that fits; nothing when it could not be read.
    const fitted = (text, size, smallest, room) => {
        const width = textWidth(text, size);
        const fitting = width <= room ? size : size * room / width;
        return text === '' || fitting < smallest ? null : {text, size: fitting, width: Math.min(width, room)};
    };

    const shortened = (text, size, room) => {
        const letters = [...text];
        while (letters.length > 0 && textWidth(`${letters.join('')}…`, size) > room) {
            letters.pop();
        }
        return letters.length === 0 ? '' : `${letters.join('')}…`;
    };

    const drawText = (className, {text, size}, x, y) => svg('text', {
        class: className, x: round(x), y: round(y), style: `font-size:${round(size)}px`,
    }, text);

    // The words of a note may go on until the next note begins.
    const wordEnds = (notes, layout) => notes.map((note, index) => {
        const next = notes[index + 1]?.pos ?? 0;
        return layout.x(note.pos + Math.max(note.duration, next - note.pos));
    });

    // What stands in the rows: words never lie on another note or on other words.
    const makeWords = (notes, layout) => {
        const bodies = new Map(layout.numbers.map(number => [number, []]));
        const words = new Map(layout.numbers.map(number => [number, []]));
        for (const note of notes) {
            bodies.get(note.number).push([layout.x(note.pos), layout.x(endOf(note))]);
        }
        const isFree = (pieces, left, right) => pieces.every(piece => piece[0] >= right || piece[1] <= left);
        const lyric = (note, left, end) => {
            const next = bodies.get(note.number).reduce(
                (nearest, [begin]) => begin > left ? Math.min(nearest, begin - 1) : nearest, end);
            const room = next - left;
            const text = fitted(note.lyric, 11, 6.6, room) ??
                fitted(shortened(note.lyric, 6.6, room), 6.6, 6.6, room);
            const row = words.get(note.number);
            if (!text || !isFree(row, left, left + text.width)) {
                return [];
            }
            row.push([left, left + text.width]);
            return [drawText('lyric', text, left, layout.y(note.number) + 10.5)];
        };
        // Below their note if they are legible there and no longer than the note.
        const phoneme = (note, left) => {
            const row = words.get(note.number - 1);
            const text = fitted(note.phoneme, 9, 7, layout.x(endOf(note)) - left);
            if (!row || !text || !isFree(row, left, left + text.width) ||
                !isFree(bodies.get(note.number - 1), left, left + text.width)) {
                return [];
            }
            row.push([left, left + text.width]);
            return [drawText('phoneme', text, left, layout.y(note.number) + rowHeight + 9)];
        };
        return {lyric, phoneme};
    };

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

    // Deeper waves are higher, faster ones shorter. None leaves its note, where another one may be.
    const vibratoPath = (note, layout) => {
        const begin = endOf(note) - note.vibrato.duration;
        const length = note.vibrato.duration * layout.scale;
        const middle = layout.y(note.number) + rowHeight - 3.8;
        let phase = 0;
        let path = '';
        for (let x = 0; x <= length; x += 1) {
            const pos = x / layout.scale;
            const height = 0.6 + 2.2 * valueAt(note.vibrato.depths, pos, 64) / 127;
            path += `${path === '' ? 'M' : 'L'}${round(layout.x(begin) + x)} ` +
                `${round(middle - height * Math.sin(phase))}`;
            phase += 2 * Math.PI / (15 - 10 * valueAt(note.vibrato.rates, pos, 64) / 127);
        }
        return path;
    };

    // Before the lyric an attack and a singing skill, at the end of the note a release. A mark is left out
    // where its note is too short.
    const markWidth = 6;
    const markPaths = {attack: 'l4.5 3.5l-4.5 3.5z', skill: 'm0 3.5l2.5 -3.5l2.5 3.5l-2.5 3.5z', release: 'm4.5 0l-4.5 3.5l4.5 3.5z'};
    const marksOf = (note, layout) => {
        const wanted = [
            ...(note.attack.component ? ['attack'] : []),
            ...(note.singingSkill.duration > 0 ? ['skill'] : []),
            ...(note.release.component ? ['release'] : []),
        ];
        const width = note.duration * layout.scale;
        return wanted.filter((name, index) => width >= (index + 1) * markWidth + 2);
    };

    const drawMarks = (note, marks, layout) => marks.map((name, index) => {
        const x = name === 'release' ? layout.x(endOf(note)) - markWidth : layout.x(note.pos) + 2 + index * markWidth;
        return svg('path', {class: `mark ${name}`, d: `M${round(x)} ${layout.y(note.number) + 3}${markPaths[name]}`});
    });

    const hintOf = note => `${note.lyric} [${note.phoneme}] ${data.pitchText(note.number)}, ` +
        `at ${note.pos}, ${note.duration} ticks, velocity ${note.velocity}`;

    const noteGroup = (note, end, words, layout) => {
        const [x, y] = [layout.x(note.pos), layout.y(note.number)];
        const width = Math.max(note.duration * layout.scale, 1);
        const marks = marksOf(note, layout);
        const closing = marks.includes('release') ? 1 : 0;
        const group = svg('g', {class: note.vibrato.duration > 0 ? 'note swinging' : 'note'},
            svg('title', {}, hintOf(note)),
            svg('rect', {
                x: round(x), y, width: round(width), height: rowHeight, rx: 2.5,
                'fill-opacity': Math.round(100 * (0.2 + 0.8 * note.velocity / 127)) / 100,
            }));
        if (note.vibrato.duration > 0) {
            group.append(svg('path', {class: 'vibrato', d: vibratoPath(note, layout)}));
        }
        const room = closing > 0 ? layout.x(endOf(note)) - markWidth - 1 : end - 1;
        group.append(...drawMarks(note, marks, layout),
            ...words.lyric(note, x + 3 + (marks.length - closing) * markWidth, room),
            ...words.phoneme(note, x + 3));
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
        return {
            y, path, area: `${path}V${base}H${first}z`,
            zero: lane.least < 0 ? y(0) : y((lane.least + lane.most) / 2),
        };
    };

    // The first of the highest and of the lowest values, which may stand close to each other.
    const extremes = ({lane, top, height}, y, layout) => {
        const values = lane.events.map(event => event.value);
        const write = (value, isBelow) => {
            const event = lane.events[values.indexOf(value)];
            const width = textWidth(String(value), 9);
            const right = Math.max(layout.x(event.pos), 0) + 3;
            const x = right + width > layout.width ? right - width - 6 : right;
            const place = y(value);
            const below = place < top + 14 || (isBelow && place + 11 < top + height);
            return svg('text', {class: 'extreme', x: round(x), y: round(place + (below ? 9 : -3.5))}, String(value));
        };
        const reach = (best, value) => value > best[1] ? [best[0], value] : value < best[0] ? [value, best[1]] : best;
        const [least, most] = values.reduce(reach, [values[0], values[0]]);
        return [write(most, false), write(least, true)];
    };

    const flatText = (first, layout) =>
        first.pos <= layout.begin ? `${first.value} throughout` : `${first.value} from tick ${first.pos}`;

    const laneGroup = (place, layout) => {
        const {lane, top, height} = place;
        const frame = svg('rect', {class: 'frame', x: 0, y: top, width: layout.width, height});
        if (isFlat(lane)) {
            return svg('g', {}, frame, svg('text', {x: 6, y: top + 13, class: 'lane-text'},
                flatText(lane.events[0], layout)));
        }
        const drawn = steps(place, layout);
        return svg('g', {}, frame,
            svg('path', {class: 'zero', d: `M0 ${drawn.zero}H${round(layout.width)}`}),
            svg('path', {class: 'area', d: drawn.area}), svg('path', {class: 'curve', d: drawn.path}),
            ...extremes(place, drawn.y, layout));
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
        for (const number of layout.numbers) {
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
        layout.folds.forEach(fold => result.append(svg('text', {
            class: 'fold-text', x: gutter - 4, y: fold.top + foldHeight - 3,
        }, `${fold.keys} keys`)));
        layout.lanes.forEach(lane => result.append(...laneLabels(lane)));
        return result;
    };

    const labelOf = (part, layout) => {
        const bars = Math.round((layout.end - layout.begin) / layout.ticksPerBar);
        const numbers = part.notes.map(note => note.number);
        const range = numbers.reduce((found, number) =>
            ({low: Math.min(found.low, number), high: Math.max(found.high, number)}), {low: 127, high: 0});
        return part.notes.length === 0 ? 'Piano roll without notes' :
            `Piano roll: ${part.notes.length} notes from ${data.pitchText(range.low)} to ` +
            `${data.pitchText(range.high)}, ${bars} bars. The table of notes below has them all.`;
    };

    // The roll, with the moving line, and the groups of the notes in the order of the notes.
    const roll = (part, pixelsPerQuarter) => {
        const layout = makeLayout(part, pixelsPerQuarter);
        const ends = wordEnds(part.notes, layout);
        const words = makeWords(part.notes, layout);
        const notes = part.notes.map((note, index) => noteGroup(note, ends[index], words, layout));
        const now = svg('line', {class: 'now', x1: 0, x2: 0, y1: 0, y2: layout.height});
        const sheet = svg('svg', {
            width: layout.width, height: layout.height, role: 'img', 'aria-label': labelOf(part, layout),
        }, ...rows(layout), ...folds(layout), gridLines(layout, layout.ticksPerBeat, 'grid'),
            gridLines(layout, layout.ticksPerBar, 'grid bars'), ...barNumbers(layout),
            beyondEnd(part, layout), ...notes,
            ...layout.lanes.map(lane => laneGroup(lane, layout)), now);
        return {layout, keys: keys(layout), sheet, notes, now};
    };

    return {picture, wave, roll, spanOf, endOf, valueAt};
})();
