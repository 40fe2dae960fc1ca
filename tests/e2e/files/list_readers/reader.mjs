// What a library for chapters that others wrote makes of a list: reader.mjs FOLDER FORM FILE gives a line of JSON, an array of
// [seconds, title, link]. With "write" behind, the list in FILE, Podcast Chapters, is printed in FORM.
import fs from 'node:fs';
import path from 'node:path';
import { pathToFileURL } from 'node:url';

const [folder, form, file, way] = process.argv.slice(2);
const library = await import(pathToFileURL(path.join(folder, 'node_modules/@mtillmann/chapters/dist/index.js')));
const text = fs.readFileSync(file, 'utf8');

if (way === 'write') {
  const list = library.ChaptersJson.create(text);
  list.duration = 4000;
  list.bump();
  console.log(list.to(library[form]).toString(true));
} else {
  const { chapters } = library[form].create(text);
  console.log(JSON.stringify(chapters.map((each) => [each.startTime, each.title ?? '', each.url ?? ''])));
}
