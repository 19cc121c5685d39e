// Search, filters, keys, and which of the two pages is shown.
gallery.page = (() => {
    const {data, search, cards, clip: clipPage} = gallery;
    const {make} = cards;
    const byId = id => document.getElementById(id);
    const wish = {query: '', chosen: new Map(), tempo: {from: null, to: null}, order: 'name', reversed: false};
    const boxes = []; // {category, value, input, count, row}
    let found = [];
    let scrolledTo = 0;

    const countText = number => `${number} of ${data.clips.length} clips`;

    const showCounts = counts => {
        for (const {category, value, input, count, row} of boxes) {
            const number = counts.get(category.key).get(value) ?? 0;
            count.textContent = number;
            row.classList.toggle('none', number === 0 && !input.checked);
        }
    };

    const update = () => {
        const result = search.find(wish);
        found = result.clips;
        byId('status').textContent = countText(found.length);
        showCounts(result.counts);
        cards.show(found);
    };

    // --- Filters -------------------------------------------------------------------------------------

    const choose = (category, value, isChosen) => {
        const chosen = wish.chosen.get(category.key) ?? new Set();
        isChosen ? chosen.add(value) : chosen.delete(value);
        wish.chosen.set(category.key, chosen);
        update();
    };

    const choiceOf = (category, value) => {
        const input = make('input');
        input.type = 'checkbox';
        input.addEventListener('change', () => choose(category, value, input.checked));
        const count = make('span', 'count');
        const row = make('label', 'choice', input, make('span', '', category.text(value)), count);
        row.dataset.category = category.key;
        boxes.push({category, value, input, count, row});
        return row;
    };

    const groupOf = (label, ...content) => make('fieldset', '', make('legend', '', label), ...content);

    const addFilters = () => {
        for (const category of search.categories) {
            const values = search.everyValue(category);
            if (values.length > 1) {
                const choices = values.map(value => choiceOf(category, value));
                byId('filters').append(groupOf(category.label, make('div', 'choices', ...choices)));
            }
        }
        byId('filters').append(groupOf('Tempo', make('div', 'tempo',
            tempoInput('from'), make('span', '', 'to'), tempoInput('to'))));
    };

    const tempoInput = end => {
        const input = make('input');
        Object.assign(input, {type: 'number', min: 0, step: 'any'});
        input.setAttribute('aria-label', `Tempo ${end}, in beats a minute`);
        input.addEventListener('input', () => {
            wish.tempo[end] = input.value === '' ? null : Number(input.value);
            update();
        });
        return input;
    };

    const addOrders = () => {
        for (const [key, {label}] of Object.entries(search.orders)) {
            const option = make('option', '', label);
            option.value = key;
            byId('sort').append(option);
        }
        byId('sort').value = wish.order;
    };

    const reset = () => {
        Object.assign(wish, {query: '', chosen: new Map(), tempo: {from: null, to: null}});
        byId('search-form').reset();
        byId('filters').reset();
        Object.assign(wish, {order: 'name', reversed: false});
        byId('sort').value = wish.order;
        update();
    };

    const listenToSearch = () => {
        byId('search').addEventListener('input', event => {
            wish.query = event.target.value;
            update();
        });
        byId('sort').addEventListener('change', event => {
            wish.order = event.target.value;
            update();
        });
        byId('reversed').addEventListener('change', event => {
            wish.reversed = event.target.checked;
            update();
        });
        byId('start-over').addEventListener('click', reset);
        byId('search-form').addEventListener('submit', event => event.preventDefault());
    };

    const showNotListed = () => {
        const box = byId('not-listed');
        const number = data.notListed.length;
        box.hidden = number === 0;
        box.append(make('summary', '', number === 1 ? '1 clip file is not listed'
            : `${number} clip files are not listed`));
        for (const file of data.notListed) {
            box.append(make('p', '', file.path), clipPage.findingList(file.findings));
        }
    };

    // --- Which page ----------------------------------------------------------------------------------

    const wanted = () => {
        const match = /^#clip=(.*)$/s.exec(location.hash);
        try {
            return match && data.find(decodeURIComponent(match[1]));
        } catch {
            return null; // an address that someone else wrote
        }
    };

    const showCatalogue = last => {
        clipPage.close();
        byId('clip').hidden = true;
        byId('catalogue').hidden = false;
        document.title = data.title;
        scrollTo(0, scrolledTo);
        last && document.querySelector(`.card[data-index="${last.index}"]`)?.focus({preventScroll: true});
    };

    const showClip = clip => {
        if (byId('clip').hidden) {
            scrolledTo = scrollY;
        }
        byId('catalogue').hidden = true;
        byId('clip').hidden = false;
        document.title = `${clip.name} – ${data.title}`;
        scrollTo(0, 0);
        const place = found.indexOf(clip);
        clipPage.open(clip, found[place - 1], place < 0 ? undefined : found[place + 1]);
    };

    let current = null;
    const route = () => {
        const last = current;
        current = wanted();
        current ? showClip(current) : last && showCatalogue(last);
    };

    const isTyping = target => /^(INPUT|SELECT|TEXTAREA|BUTTON|SUMMARY|A)$/.test(target.tagName);

    const onKey = event => {
        if (event.ctrlKey || event.metaKey || event.altKey) {
            return;
        }
        if (event.key === '/' && !current && event.target !== byId('search')) {
            event.preventDefault();
            byId('search').focus();
        } else if (event.key === 'Escape' && current) {
            location.hash = '';
        } else if (event.key === ' ' && current && !isTyping(event.target)) {
            event.preventDefault();
            clipPage.toggle();
        }
    };

    byId('title').textContent = data.title;
    byId('filter-box').open = matchMedia('(min-width: 761px)').matches;
    addOrders();
    addFilters();
    listenToSearch();
    showNotListed();
    update();
    route();
    addEventListener('hashchange', route);
    addEventListener('keydown', onKey);
    performance.mark('usable');
    return {update};
})();
