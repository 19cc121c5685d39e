// Notes as a plain tone: a sine with two harmonics, with velocity, dynamics, pitch bend and vibrato.
gallery.sound = (() => {
    const {data, roll} = gallery;

    // A clip has no units for these; "plxsong play" uses the same.
    const conventions = {
        concertPitch: 440, concertNumber: 69,
        bendRange: 2, // semitones, when the clip does not say
        deepest: 1, fastest: 12, // semitones of a depth of 127, cycles a second of a rate of 127
        usualDepth: 40, usualRate: 60, // of a vibrato without points
        plainTempo: 12000, plainDynamics: 100,
    };
    const fade = 1 / 200; // seconds
    const finest = 1 / 250; // seconds between two values of a curve
    const mostValues = 50000;
    const ahead = 2; // seconds that are scheduled in advance
    const volume = 0.22;

    // The value that holds at a tick.
    const steps = (points, before) => tick => {
        let [low, high] = [0, points.length];
        while (low < high) {
            const middle = (low + high) >> 1;
            points[middle].pos <= tick ? low = middle + 1 : high = middle;
        }
        return low === 0 ? before : points[low - 1].value;
    };

    const laneOf = (part, name, before) =>
        steps(part.lanes.find(lane => lane.name === name)?.events ?? [], before);

    // A part with what sounding it needs. Seconds count from the first thing in it.
    const tuneOf = (part, clip) => {
        const span = roll.spanOf(part);
        const ticksPerSecond = (clip.tempo || conventions.plainTempo) / 6000 * data.ticksPerQuarter;
        return {
            notes: [...part.notes].sort((a, b) => a.pos - b.pos),
            begin: span.begin,
            seconds: (span.end - span.begin) / ticksPerSecond,
            ticksPerSecond,
            secondOf: tick => (tick - span.begin) / ticksPerSecond,
            tickOf: second => span.begin + second * ticksPerSecond,
            bend: laneOf(part, 'pitchBend', 0),
            bendRange: laneOf(part, 'pitchBendSens', conventions.bendRange),
            dynamics: laneOf(part, 'dynamics', conventions.plainDynamics),
        };
    };

    const frequencyOf = number =>
        conventions.concertPitch * 2 ** ((number - conventions.concertNumber) / 12);

    // Semitones above or below the note, at one tick after the other: a vibrato goes on swinging.
    const vibratoOf = (note, secondsBetween) => {
        const begin = roll.endOf(note) - note.vibrato.duration;
        const depth = steps(note.vibrato.depths, conventions.usualDepth);
        const rate = steps(note.vibrato.rates, conventions.usualRate);
        let swing = 0;
        return tick => {
            if (tick < begin || note.vibrato.duration === 0) {
                return 0;
            }
            swing += rate(tick - begin) / 127 * conventions.fastest * secondsBetween;
            return Math.sin(2 * Math.PI * swing) * depth(tick - begin) / 127 * conventions.deepest;
        };
    };

    // Frequencies and loudness of a note, evenly spaced over its length.
    const curvesOf = (note, tune, highest) => {
        const seconds = note.duration / tune.ticksPerSecond;
        const count = Math.max(2, Math.min(mostValues, Math.ceil(seconds / finest) + 1));
        const between = seconds / (count - 1);
        const vibrato = vibratoOf(note, between);
        const loud = 0.3 + 0.7 * note.velocity / 127;
        const frequencies = new Float32Array(count);
        const gains = new Float32Array(count);
        for (let i = 0; i < count; ++i) {
            const tick = note.pos + note.duration * i / (count - 1);
            const bent = note.number + tune.bend(tick) / 8192 * tune.bendRange(tick) + vibrato(tick);
            const edge = Math.min(1, i * between / fade, (count - 1 - i) * between / fade);
            frequencies[i] = Math.min(frequencyOf(bent), highest);
            gains[i] = volume * loud * tune.dynamics(tick) / 127 * edge;
        }
        return {seconds, frequencies, gains};
    };

    const toneOf = context => context.createPeriodicWave(
        new Float32Array(4), new Float32Array([0, 1, 0.3, 0.1]), {disableNormalization: true});

    // Puts a note into a context whose time `zero` is the beginning of the tune.
    const schedule = (context, destination, note, tune, zero) => {
        const {seconds, frequencies, gains} = curvesOf(note, tune, context.sampleRate / 2);
        const start = Math.max(zero + tune.secondOf(note.pos), context.currentTime);
        const tone = new OscillatorNode(context, {periodicWave: toneOf(context)});
        const loudness = new GainNode(context, {gain: 0});
        tone.frequency.setValueCurveAtTime(frequencies, start, seconds);
        loudness.gain.setValueCurveAtTime(gains, start, seconds);
        tone.connect(loudness).connect(destination);
        tone.start(start);
        tone.stop(start + seconds);
    };

    // Plays from a second on: notes that begin later are heard.
    const startTune = (tune, from) => {
        const context = new AudioContext();
        const zero = context.currentTime + 0.1 - from;
        let next = tune.notes.findIndex(note => tune.secondOf(note.pos) >= from - 1e-6);
        const scheduleNext = () => {
            const until = context.currentTime + ahead;
            while (next >= 0 && next < tune.notes.length &&
                zero + tune.secondOf(tune.notes[next].pos) < until) {
                schedule(context, context.destination, tune.notes[next], tune, zero);
                ++next;
            }
        };
        scheduleNext();
        const timer = setInterval(scheduleNext, 250);
        return {
            position: () => Math.max(from, context.currentTime - zero),
            stop: () => {
                clearInterval(timer);
                context.close();
            },
        };
    };

    const ofNotes = (part, clip) => {
        const tune = tuneOf(part, clip);
        return {seconds: tune.seconds, tune, start: from => startTune(tune, from)};
    };

    // A wave file beside the page. `failed` is called when the browser cannot play it.
    const ofWave = (wave, failed) => ({
        seconds: wave.seconds ?? 0,
        start: from => {
            const audio = new Audio(data.link(wave.path));
            audio.addEventListener('error', failed);
            audio.currentTime = from;
            audio.play().catch(failed);
            return {
                position: () => audio.currentTime,
                hasEnded: () => audio.ended,
                stop: () => {
                    audio.removeEventListener('error', failed);
                    audio.pause();
                    audio.removeAttribute('src');
                },
            };
        },
    });

    return {conventions, tuneOf, schedule, ofNotes, ofWave};
})();
