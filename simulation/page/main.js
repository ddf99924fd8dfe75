// Puts the page together.

function openForPrint() {
  const shut = [...document.querySelectorAll('details:not([open])')];
  for (const details of shut) details.open = true;
  return shut;
}

function drawPage() {
  const run = readData(document.getElementById('run').textContent);
  const sections = [makeRun(run), ...run.report.replies.map((reply, index) => makeCall(run, reply, index)), makeDesktop(run),
    makeKeys(run), makeFields(run), makeClipboard(run), makeOthers(run), makeEnd(run)].filter((section) => section !== null);
  document.getElementById('top').append(...makeHead(run).flat().filter((part) => part !== null));
  document.getElementById('contents').append(makeContents(sections));
  document.getElementById('main').replaceChildren(...sections);
  document.getElementById('foot').append(make('p', {class: 'quiet'}, 'This page is one file. It asks nothing of anywhere.'));

  let shut = [];
  window.addEventListener('beforeprint', () => { shut = openForPrint(); });
  window.addEventListener('afterprint', () => { for (const details of shut) details.open = false; });
}

drawPage();
