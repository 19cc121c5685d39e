// The page of one clip.
gallery.clip = (() => {
    const {data, roll, sound, cards, tables, player: players} = gallery;
    const {make} = cards;
    const place = document.getElementById('clip');
    let leave = () => {};

    const heading = text => make('h2', '', text);

    // --- What the catalogue and the part say ---------------------------------------------------------

    const factsOf = (clip, part) => [
        ['Vendor', clip.vendor || 'none'], ['Part', clip.part], ['Key', data.keyText(clip.key)],
        ['Tempo', data.tempoText(clip) || 'none'], ['Meter', part.meterText], ['Kind', `${clip.kind} clip`],
        ['Duration', part.notes ? `${part.duration} ticks` : part.wave ? wavesLength(part.wave) : ''],
        ['Voice', part.voice], ['Style', part.styleName], ['Style preset', part.stylePreset],
        ['Languages of the part', (part.languages ?? []).map(data.languageText).join(', ')],
        ['Singer IDs', clip.tags.singerIDs.join(', ')], ['ID', clip.id], ['File', clip.path],
        ['Wave file', part.wave?.path],
    ].filter(([, value]) => value);

    const wavesLength = wave => wave.problem ? '' : `${Math.round(wave.seconds * 100) / 100} s, ` +
        `${wave.channels === 1 ? 'mono' : wave.channels === 2 ? 'stereo' : `${wave.channels} channels`}, ` +
        `${wave.rate} samples a second`;

    const isPath = name => name === 'File' || name === 'Wave file';

    const factSection = (clip, part) => [heading('About this clip'),
        make('dl', '', ...factsOf(clip, part).map(([name, value]) =>
            make('div', isPath(name) ? 'path' : '', make('dt', '', name), make('dd', '', value))))];

    const summary = clip => [
        make('p', 'facts', [clip.vendor || 'no vendor', cards.factsOf(clip)].join(' · ')),
        ...(cards.tagsOf(clip).length > 0 ? [cards.tagList(clip)] : []),
    ];

    const findingItem = finding => make('li', '', make('code', '', `${finding.place} `),
        `${finding.pointer} ${finding.message}`.trim());

    const findingList = findings => make('ul', 'findings', ...findings.map(findingItem));

    const findingSection = part => [heading('What plxclip check says'),
        part.findings.length > 0 ? findingList(part.findings) : make('p', '', 'Nothing is lost in this clip.')];

    // --- Words and notes -----------------------------------------------------------------------------

    const lyricSpans = part => part.notes.map(note => make('span', '', note.lyric));

    const lyricSection = spans => spans.length === 0 ? [] : [heading('Lyrics'),
        make('p', 'lyrics', ...spans.flatMap(span => [span, ' ']))];

    // Keeps the line in view by turning pages, not by moving all the time.
    const keepInView = (scroller, x) => {
        const left = scroller.scrollLeft;
        if (x < left || x > left + scroller.clientWidth - 40) {
            scroller.scrollLeft = Math.max(0, x - 40);
        }
    };

    const markSounding = (elements, notes, tick) => elements.forEach((element, index) => {
        const note = notes[index];
        element.classList.toggle('sounding', tick > note.pos && tick < roll.endOf(note));
    });

    const legend = part => make('p', 'legend', [
        'A stronger colour is a higher velocity.',
        ...(part.notes.some(note => note.vibrato.duration > 0)
            ? ['A wavy line is a vibrato: higher waves are deeper, shorter ones faster.'] : []),
        ...(part.notes.some(note => note.attack.component || note.release.component)
            ? ['A triangle at the left of a note is an attack, at the right a release.'] : []),
        ...(part.notes.some(note => note.singingSkill.duration > 0) ? ['A diamond is a singing skill.'] : []),
        ...(part.keys.length > 1 ? ['Keys far from all notes are folded.'] : []),
        'Click into the roll to go there.',
    ].join(' '));

    // The roll and its moving line.
    const rollBox = (part, tune, pixels) => {
        const scroller = make('div', 'scroller');
        scroller.tabIndex = 0;
        scroller.setAttribute('role', 'region');
        scroller.setAttribute('aria-label', 'Piano roll');
        const element = make('div', 'roll');
        let drawn = null;
        const draw = pixelsPerQuarter => {
            drawn = roll.roll(part, pixelsPerQuarter);
            scroller.replaceChildren(drawn.sheet);
            element.replaceChildren(drawn.keys, scroller);
        };
        const moveTo = tick => {
            const x = drawn.layout.x(tick);
            drawn.now.setAttribute('transform', `translate(${x})`);
            keepInView(scroller, x);
            markSounding(drawn.notes, part.notes, tick);
        };
        const secondAt = event => {
            const x = event.clientX - drawn.sheet.getBoundingClientRect().left;
            return tune.secondOf(drawn.layout.begin + x / drawn.layout.scale);
        };
        draw(pixels);
        return {element, scroller, draw, moveTo, secondAt};
    };

    const zoomSlider = (usual, changed) => {
        const zoom = players.slider('zoom', 'Zoom', 20, 240, usual, 10);
        zoom.addEventListener('input', () => changed(Number(zoom.value)));
        return make('label', '', 'Zoom ', zoom);
    };

    const midiSections = (clip, part) => {
        const source = sound.ofNotes(part, clip);
        const spans = lyricSpans(part);
        const usualZoom = innerWidth < 700 ? 50 : 90;
        const box = rollBox(part, source.tune, usualZoom);
        let last = 0;
        const moved = seconds => {
            last = source.tune.tickOf(seconds);
            box.moveTo(last);
            markSounding(spans, part.notes, last);
        };
        const player = players.create(source, moved);
        player.element.append(zoomSlider(usualZoom, pixels => {
            box.draw(pixels);
            box.moveTo(last);
        }));
        box.scroller.addEventListener('click', event => player.seek(box.secondAt(event)));
        return {player, sections: [player.element, box.element, legend(part), ...lyricSection(spans),
            heading('Notes and controllers'), ...tables.ofNotes(part), ...tables.ofLanes(part)]};
    };

    const effectSection = part => {
        const effects = tables.ofEffects(part);
        return effects.length === 0 ? [] : [heading('Effects'), ...effects];
    };

    const waveSections = part => {
        const problem = make('p', 'bad');
        problem.setAttribute('role', 'status');
        const line = make('div', 'now-line');
        const box = make('div', 'wave-box', line);
        const source = sound.ofWave(part.wave, () => {
            player.stop();
            problem.textContent = 'The browser cannot play the wave file; is it still there, beside the page?';
        });
        const player = players.create(source, seconds => {
            line.style.left = `${source.seconds > 0 ? seconds / source.seconds * 100 : 0}%`;
        });
        if (part.wave.peaks) {
            const picture = roll.wave('picture wave', part.wave.peaks, 1000, 180);
            box.prepend(picture);
            box.addEventListener('click', event => {
                const {left, width} = box.getBoundingClientRect();
                player.seek((event.clientX - left) / width * source.seconds);
            });
        }
        return {player, sections: [player.element, problem,
            part.wave.problem ? make('p', '', part.wave.problem) : box]};
    };

    const partSections = (clip, part) => part.notes ? midiSections(clip, part)
        : part.wave ? waveSections(part)
            : {player: null, sections: [make('p', 'bad', 'The part of this clip cannot be read.')]};

    // --- The page ------------------------------------------------------------------------------------

    const linkTo = (clip, text, className) => {
        const link = make('a', className, text);
        link.href = clip ? cards.addressOf(clip) : '#';
        return link;
    };

    const navigation = (before, after) => {
        const element = make('nav', '', linkTo(null, '← All clips', 'back'),
            ...(before ? [linkTo(before, `Previous: ${before.name}`, 'previous')] : []),
            ...(after ? [linkTo(after, `Next: ${after.name}`, 'next')] : []));
        element.setAttribute('aria-label', 'Clips');
        return element;
    };

    const close = () => {
        leave();
        leave = () => {};
        place.replaceChildren();
    };

    // The neighbours are those in the list that was shown last.
    const open = (clip, before, after) => {
        close();
        const part = data.part(clip);
        const {player, sections} = partSections(clip, part);
        const title = make('h1', '', clip.name);
        title.tabIndex = -1;
        place.append(navigation(before, after), title, ...summary(clip), ...sections,
            ...effectSection(part), ...factSection(clip, part), ...findingSection(part));
        leave = () => player?.stop();
        title.focus();
    };

    const toggle = () => place.querySelector('.play')?.click();

    return {open, close, toggle, findingList};
})();
