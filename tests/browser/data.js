// A data folder for the tests: a short session of the host program, with requests whose exposure
// settles, a damaged file, names and texts that would be markup, and a capture that differs from
// another in known ways.
import { execFileSync } from 'node:child_process';
import fs from 'node:fs';
import path from 'node:path';

const build = path.resolve(import.meta.dirname ?? '.', '../../build/release');

export const settledFrom = { 0: 107, 1: 109 };
export const hostileName = `IMG_<svg onload=alert(1)><script>"'&\x1b`;

export function simrec(data, ...words) {
  const options = { encoding: 'utf8', maxBuffer: 1 << 28 };
  return execFileSync(path.join(build, 'simrec/simrec'), ['--data', data, ...words], options);
}

export function show(data, capture) {
  return JSON.parse(simrec(data, 'show', capture, '--json', '--lists')).records;
}

/** The image that has the large records. */
function wholeImage(data) {
  const size = (name) => fs.readdirSync(path.join(data, name)).length;
  const images = fs.readdirSync(data).filter((name) => name.startsWith('IMG_'));
  return images.reduce((a, b) => (size(b) > size(a) ? b : a));
}

function addRequests(data, image) {
  for (let request = 100; request < 120; ++request) {
    for (const camera of [0, 1]) {
      const folder = path.join(data, 'tmp', `RequestID[${request}]_camId[${camera}]`);
      fs.mkdirSync(folder, { recursive: true });
      const copy = (name, edit) => {
        const text = fs.readFileSync(path.join(data, image, name), 'utf8');
        fs.writeFileSync(path.join(folder, name), edit(text));
      };
      const settled = request >= settledFrom[camera] ? 1 : 0;
      copy(`simulation_AWB_AECData_camId[${camera}].xml`, (text) =>
        text.replace(/AECSettled="\d+"/, `AECSettled="${settled}"`));
      copy(`simulation_AE_AECData_camId[${camera}]_ev[0].xml`, (text) =>
        text.replace(/<LuxIndex>[^<]*/, `<LuxIndex>${request * 2 + (request === 115 ? 90 * camera : 0)}`));
    }
  }
}

/** Returns the names of the image and of the captures made of it. */
export function makeData(data) {
  execFileSync(path.join(build, 'examples/capture_session'), ['--requests', '30', '--data', data]);
  const image = wholeImage(data);
  addRequests(data, image);
  simrec(data, 'set', image, 'CHANGED', 'LSC.rGain*=1.25', 'AE_AECData.LuxIndex=350',
    'AWB_ParsedAWBStatsOutput.RSum[40]*=2', 'AWB_QsegImageData.qsegStatsInfo[0]=9');
  const broken = path.join(data, 'IMG_BROKEN');
  fs.mkdirSync(broken);
  const file = 'simulation_AWB_FaceROI_camId[0].bin';
  fs.writeFileSync(path.join(broken, file), Buffer.alloc(900));
  const hostile = path.join(data, hostileName);
  fs.mkdirSync(hostile);
  fs.writeFileSync(path.join(hostile, 'simulation_LSC[<img src=x onerror=alert(2)>]_index[0]_ev[0].xml'),
    '<SimulationData><LensShadingInfo width="<b>" height="13"><rGain>&lt;script&gt;alert(3)&lt;/script&gt;</rGain></LensShadingInfo></SimulationData>');
  fs.writeFileSync(path.join(hostile, 'simulation_ZOAWB_SyncInfo_camId[0].xml'),
    '<AWBsyncInfo><syncinfo>&lt;/script&gt;&lt;script&gt;alert(4)&lt;/script&gt;</syncinfo></AWBsyncInfo>');
  fs.writeFileSync(Buffer.concat([Buffer.from(`${hostile}/`), Buffer.from([0xff, 0xfe, 0x3c, 0x2f])
    .subarray(0, 3)]), 'x');
  return { image, changed: 'CHANGED', broken: { capture: 'IMG_BROKEN', file } };
}
