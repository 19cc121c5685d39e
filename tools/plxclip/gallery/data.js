// The only global: each file below adds its part to it.
const gallery = {};

// The clips. A part is read out of the page when it is needed.
gallery.data = (() => {
    const read = id => JSON.parse(document.getElementById(id).textContent);
    const catalogue = read('catalogue-data');
    const clips = catalogue.clips;
    clips.forEach((clip, index) => { clip.index = index; });
    const parts = new Map();

    // Position and value in turn.
    const points = turns => {
        const result = [];
        for (let i = 0; i < turns.length; i += 2) {
            result.push({pos: turns[i], value: turns[i + 1]});
        }
        return result;
    };

    const withPoints = vibrato => ({
        ...vibrato, depths: points(vibrato.depths), rates: points(vibrato.rates),
    });

    // A note has what differs from the usual note.
    const noteOf = (row, usual) => {
        const [pos, duration, number, velocity, lyric, phoneme, own] = row;
        const note = {...usual, ...own, pos, duration, number, velocity, lyric, phoneme};
        note.vibrato = withPoints(note.vibrato);
        return note;
    };

    // From the highest range to the lowest; between two of them the keys are folded.
    const ranges = turns => points(turns).map(({pos, value}) => ({low: pos, high: value}));

    const unpacked = part => {
        part.keys &&= ranges(part.keys);
        part.notes &&= part.notes.map(row => noteOf(row, part.usual));
        part.lanes &&= part.lanes.map(lane => ({...lane, events: points(lane.events)}));
        return part;
    };

    const part = clip => {
        if (!parts.has(clip.index)) {
            parts.set(clip.index, unpacked(read(`part-${clip.index}`)));
        }
        return parts.get(clip.index);
    };

    const keyText = key => catalogue.keyNames ? catalogue.keyNames[key] ?? '–' : `key ${key}`;
    const languageText = language => catalogue.languageNames?.[language] ?? `language ${language}`;
    const tempoText = clip => clip.tempo === 0 ? '' : `${clip.tempo / 100} BPM`;

    // A relative path, or on Windows one that begins with its drive.
    const link = path => {
        const steps = path.split('/').map(encodeURIComponent).join('/');
        return /^[A-Za-z]:\//.test(path) ? `file:///${path.slice(0, 2)}${steps.slice(4)}` : steps;
    };

    const pitchNames = ['C', 'C#', 'D', 'D#', 'E', 'F', 'F#', 'G', 'G#', 'A', 'A#', 'B'];
    const isBlack = number => pitchNames[number % 12].length === 2;
    const pitchText = number => pitchNames[number % 12] + (Math.floor(number / 12) - 1);

    const find = id => clips.find(clip => clip.id === id);

    return {
        title: catalogue.title,
        ticksPerQuarter: catalogue.ticksPerQuarter,
        notListed: catalogue.notListed,
        clips, part, find, keyText, languageText, tempoText, link, isBlack, pitchText,
    };
})();
