// What libraries that others wrote find in a media file, as one line of JSON: reader.js LIBRARY FILE gives an array of
// [milliseconds, title, link or null].
'use strict';

const fs = require('fs');

const [library, file] = process.argv.slice(2);

const readers = {
  async 'node-id3'() {
    const tags = require('node-id3').read(file);
    return (tags.chapter || []).map((chapter) => [chapter.startTimeMs, chapter.tags.title || '', null]);
  },
  async wavefile() {
    const { WaveFile } = require('wavefile');
    const wave = new WaveFile();
    wave.fromBuffer(fs.readFileSync(file));
    return wave.listCuePoints().map((point) => [point.position, point.label, null]);
  },
};

readers[library]().then((chapters) => console.log(JSON.stringify(chapters)));
