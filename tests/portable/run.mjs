// Runs a WebAssembly program that may read the folder it is run in: run.mjs FILE [ARGUMENT…]
import {readFile} from 'node:fs/promises';
import {WASI} from 'node:wasi';

const [file, ...words] = process.argv.slice(2);
const wasi = new WASI({version: 'preview1', args: [file, ...words], preopens: {'.': '.'}});
const module = await WebAssembly.compile(await readFile(file));
const instance = await WebAssembly.instantiate(module, wasi.getImportObject());
process.exitCode = wasi.start(instance);
