// The catalogue's cards. Their pictures are drawn when they come into view.
gallery.cards = (() => {
    const {data, roll} = gallery;
    const list = document.getElementById('cards');
    const more = document.getElementById('more');
    const atOnce = 60;
    let clips = [];
    let shown = 0;

    // An element with text; whatever comes from a clip is never markup.
    const make = (name, className, ...children) => {
        const element = document.createElement(name);
        if (className) {
            element.className = className;
        }
        element.append(...children);
        return element;
    };

    const draw = card => {
        const part = data.part(data.clips[card.dataset.index]);
        card.querySelector('.picture').replaceWith(roll.picture(part));
    };

    const watcher = new IntersectionObserver(entries => {
        for (const entry of entries) {
            if (entry.isIntersecting) {
                watcher.unobserve(entry.target);
                draw(entry.target);
            }
        }
    }, {rootMargin: '300px'});

    // Some clips have the same word as a genre and as a singer group.
    const tagsOf = clip => [...new Set([
        ...clip.tags.types, ...clip.tags.genres, ...clip.tags.singerGroups,
        ...clip.tags.languages.map(data.languageText),
    ])];

    const tagList = clip => {
        const tags = make('ul', 'tags', ...tagsOf(clip).map(tag => make('li', '', tag)));
        tags.setAttribute('aria-label', 'Tags');
        return tags;
    };

    const factsOf = clip => [
        clip.part, ...(clip.key === 0 ? [] : [data.keyText(clip.key)]),
        ...(clip.tempo === 0 ? [] : [data.tempoText(clip)]),
    ].join(' · ');

    const remarkOf = clip => !clip.reads ? 'cannot be read'
        : clip.lost > 0 ? 'something in it is not read' : '';

    const addressOf = clip => `#clip=${encodeURIComponent(clip.id)}`;

    const cardOf = (clip, place) => {
        const remark = remarkOf(clip);
        const card = make('a', 'card', make('span', 'picture'), make('div', 'text',
            make('h2', '', clip.name), make('p', '', clip.vendor || 'no vendor'),
            make('p', 'facts', factsOf(clip)), ...(remark ? [make('p', 'bad', remark)] : []),
            ...(tagsOf(clip).length > 0 ? [tagList(clip)] : [])));
        card.href = addressOf(clip);
        card.dataset.index = clip.index;
        watcher.observe(card);
        const item = make('li', '', card);
        item.setAttribute('aria-setsize', clips.length);
        item.setAttribute('aria-posinset', place + 1);
        return item;
    };

    const showMore = () => {
        const next = clips.slice(shown, shown + atOnce);
        list.append(...next.map((clip, index) => cardOf(clip, shown + index)));
        shown += next.length;
        more.hidden = shown === clips.length;
    };

    const show = found => {
        clips = found;
        shown = 0;
        watcher.disconnect();
        list.replaceChildren();
        showMore();
    };

    more.addEventListener('click', () => {
        const place = shown;
        showMore();
        list.children[place]?.firstChild.focus();
    });

    // Observed anew after each time, because it may still be in view.
    const end = new IntersectionObserver(entries => {
        if (entries.some(entry => entry.isIntersecting) && !more.hidden) {
            showMore();
            end.unobserve(more);
            end.observe(more);
        }
    }, {rootMargin: '800px'});
    end.observe(more);

    return {show, make, addressOf, tagList, tagsOf, factsOf};
})();
