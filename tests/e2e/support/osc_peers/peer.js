// A control surface made of the node-osc library. Sends: peer.js send PORT ADDRESS [VALUE]. A bundle with one message:
// peer.js bundle PORT ADDRESS VALUE. Prints each message that comes as one line of JSON: peer.js listen PORT.
'use strict';

const { Bundle, Client, Server } = require('node-osc');

const [task, port, address, value] = process.argv.slice(2);

function sendOnce(message) {
  const client = new Client('127.0.0.1', Number(port));
  client.send(message, (error) => {
    if (error) throw error;
    client.close();
  });
}

if (task === 'send') {
  sendOnce(value === undefined ? [address] : [address, Number(value)]);
} else if (task === 'bundle') {
  sendOnce(new Bundle([address, Number(value)]));
} else if (task === 'listen') {
  const server = new Server(Number(port), '127.0.0.1', () => console.log(JSON.stringify(['listening'])));
  server.on('message', (message) => console.log(JSON.stringify(message)));
  server.on('error', (error) => console.log(JSON.stringify(['error', error.message])));
} else {
  throw new Error(`what is ${task}?`);
}
