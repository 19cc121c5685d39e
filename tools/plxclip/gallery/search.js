// Which clips are shown, in which order, and how many there are of each kind.
gallery.search = (() => {
    const data = gallery.data;

    // Without accents and the case of letters: "frere" finds "Frère".
    const plain = text => text.normalize('NFKD').replace(/\p{M}/gu, '').toLowerCase();

    // What a clip can be filtered by: the values that it has, and their words.
    const same = value => value === '' ? 'none' : value;
    const categories = [
        {key: 'part', label: 'Part', values: clip => [clip.part], text: same},
        {key: 'kind', label: 'Kind', values: clip => [clip.kind], text: same},
        {key: 'vendor', label: 'Vendor', values: clip => [clip.vendor], text: same},
        {key: 'type', label: 'Type', values: clip => clip.tags.types, text: same},
        {key: 'genre', label: 'Genre', values: clip => clip.tags.genres, text: same},
        {key: 'language', label: 'Language', values: clip => clip.tags.languages,
            text: data.languageText},
        {key: 'group', label: 'Singer group', values: clip => clip.tags.singerGroups, text: same},
        {key: 'key', label: 'Key', values: clip => [clip.key], text: data.keyText},
    ];

    const textOf = clip => plain([
        clip.name, clip.vendor, clip.id, clip.part, clip.kind,
        ...clip.tags.types, ...clip.tags.genres, ...clip.tags.singerGroups, ...clip.tags.singerIDs,
        ...clip.tags.languages.map(data.languageText), data.keyText(clip.key), data.tempoText(clip),
        clip.lyrics,
    ].join('\n'));

    const texts = new Map();
    const searchText = clip => {
        if (!texts.has(clip)) {
            texts.set(clip, textOf(clip));
        }
        return texts.get(clip);
    };

    const wordsOf = query => plain(query).split(/\s+/).filter(word => word !== '');
    const hasWords = (clip, words) => words.every(word => searchText(clip).includes(word));
    // A clip without a tempo is in no range.
    const hasTempo = (clip, {from, to}) => from === null && to === null ||
        clip.tempo !== 0 && clip.tempo >= (from ?? 0) * 100 && clip.tempo <= (to ?? Infinity) * 100;

    const fits = (clip, category, chosen) => {
        const wanted = chosen.get(category.key);
        return !wanted || wanted.size === 0 ||
            category.values(clip).some(value => wanted.has(value));
    };

    const collator = new Intl.Collator();
    const byText = (a, b) => collator.compare(a, b);
    const orders = {
        found: {label: 'place', compare: (a, b) => a.index - b.index},
        name: {label: 'name', compare: (a, b) => byText(a.name, b.name)},
        vendor: {label: 'vendor', compare: (a, b) => byText(a.vendor, b.vendor)},
        part: {label: 'part', compare: (a, b) => byText(a.part, b.part)},
        key: {label: 'key', compare: (a, b) => a.key - b.key},
        tempo: {label: 'tempo', compare: (a, b) => a.tempo - b.tempo},
    };

    const sorted = (clips, {order, reversed}) => {
        const compare = orders[order].compare;
        return clips.sort((a, b) => (reversed ? compare(b, a) : compare(a, b)) || a.index - b.index);
    };

    const countIn = (counts, clip, category) => {
        const count = counts.get(category.key);
        for (const value of new Set(category.values(clip))) {
            count.set(value, (count.get(value) ?? 0) + 1);
        }
    };

    // A value's count is the number of clips that choosing it alone in its category would leave.
    const find = wish => {
        const words = wordsOf(wish.query);
        const counts = new Map(categories.map(category => [category.key, new Map()]));
        const clips = [];
        for (const clip of data.clips) {
            if (!hasWords(clip, words) || !hasTempo(clip, wish.tempo)) {
                continue;
            }
            const misfits = categories.filter(category => !fits(clip, category, wish.chosen));
            if (misfits.length === 0) {
                clips.push(clip);
                categories.forEach(category => countIn(counts, clip, category));
            } else if (misfits.length === 1) {
                countIn(counts, clip, misfits[0]);
            }
        }
        return {clips: sorted(clips, wish), counts};
    };

    const everyValue = category => {
        const counts = new Map();
        data.clips.forEach(clip => countIn(new Map([[category.key, counts]]), clip, category));
        return [...counts].sort((a, b) => b[1] - a[1]).map(([value]) => value);
    };

    return {categories, orders, find, everyValue};
})();
