// Play and stop, a slider for the place, and the time.
gallery.player = (() => {
    const {make} = gallery.cards;

    const timeText = seconds => {
        const whole = Math.floor(seconds + 1e-6);
        return `${Math.floor(whole / 60)}:${String(whole % 60).padStart(2, '0')}`;
    };

    const slider = (className, label, min, max, value, step) => {
        const input = make('input', className);
        Object.assign(input, {type: 'range', min, max, step, value});
        input.setAttribute('aria-label', label);
        return input;
    };

    // `moved` is told each new place in seconds.
    const create = (source, moved) => {
        const button = make('button', 'play', 'Play');
        const bar = slider('place', 'Place in the clip', 0, source.seconds, 0, 'any');
        const time = make('span', 'time');
        let running = null;
        let at = 0;

        const show = seconds => {
            at = Math.min(seconds, source.seconds || seconds);
            bar.value = at;
            time.textContent = timeText(at) + (source.seconds > 0 ? ` of ${timeText(source.seconds)}` : '');
            bar.setAttribute('aria-valuetext', time.textContent);
            moved(at);
        };
        const stop = () => {
            running?.stop();
            running = null;
            button.textContent = 'Play';
        };
        const follow = () => {
            if (!running) {
                return;
            }
            const seconds = running.position();
            const isOver = running.hasEnded?.() || source.seconds > 0 && seconds >= source.seconds;
            show(isOver ? 0 : seconds);
            isOver ? stop() : requestAnimationFrame(follow);
        };
        const play = () => {
            running = source.start(at);
            button.textContent = 'Stop';
            requestAnimationFrame(follow);
        };
        const seek = seconds => {
            const wasRunning = running !== null;
            stop();
            show(Math.max(0, seconds));
            wasRunning && play();
        };
        button.addEventListener('click', () => running ? stop() : play());
        bar.addEventListener('input', () => seek(Number(bar.value)));
        show(0);
        return {element: make('div', 'player', button, bar, time), button, seek, stop};
    };

    return {create, slider};
})();
