package tarnwick.examples.demo;

/**
 * The front panel's page: plain HTML and script, nothing loaded from elsewhere. The server puts
 * its port and its per-run token in (the token goes with every request the page makes).
 */
final class PanelPage {
    private PanelPage() {}

    static final String HTML = """
<!DOCTYPE html>
<html lang="en"><head><meta charset="utf-8">
<meta name="panel-token" content="@TOKEN@">
<title>Front panel (127.0.0.1:@PORT@)</title>
<style>
body{font-family:sans-serif;margin:0;background:#e8eaed;color:#222;font-size:14px}
header{background:#2d3e50;color:#fff;padding:8px 14px;display:flex;gap:24px;align-items:center}
header b{font-size:18px}
main{display:grid;grid-template-columns:repeat(3,1fr);gap:10px;padding:10px}
section{background:#fff;border-radius:6px;padding:8px 10px;box-shadow:0 1px 2px #0003}
h2{font-size:14px;margin:0 0 6px;color:#2d3e50;text-transform:uppercase;letter-spacing:.05em}
button{margin:2px;padding:5px 10px;border:1px solid #889;border-radius:4px;background:#f4f6f8;cursor:pointer}
button.key{font-weight:bold;min-width:60px}
button#key-start{background:#2e8b57;color:#fff}
button#key-stop{background:#c0392b;color:#fff}
button#record.on{background:#c0392b;color:#fff}
input,select{padding:4px;margin:2px;border:1px solid #aab;border-radius:3px}
table{border-collapse:collapse;width:100%}td,th{border-bottom:1px solid #ddd;padding:2px 4px;text-align:left}
#events,#trace{font-family:monospace;font-size:12px;max-height:260px;overflow:auto;white-space:pre}
#message{padding:4px 14px;min-height:18px;font-weight:bold}
#offline{display:none;background:#c0392b;color:#fff;padding:6px 14px;font-weight:bold}
body.offline #offline{display:block}
body.offline main{opacity:.45}
.err{color:#c0392b}.okm{color:#2e8b57}
.wide{grid-column:span 3}
.val{font-weight:bold}
</style></head><body>
<header><b>Simulated device</b><span>panel on 127.0.0.1:<span id="port">@PORT@</span></span>
<span>power: <span id="power" class="val">?</span></span><span>user: <span id="user" class="val">(nobody)</span></span>
<span>last key: <span id="lastKey">-</span>, listener after <span id="keyLatency">-</span></span>
<span><button id="record" onclick="record()">Record</button> <span id="recording"></span></span></header>
<div id="offline">The panel server does not answer: what is shown is from <span id="offline-since">-</span> and keys do nothing.
Start it again (scripts/main.sh) and reload this page.</div>
<div id="message"></div>
<main>
<section><h2>Panel keys</h2>
<button class="key" id="key-start" onclick="key('start')">Start</button>
<button class="key" id="key-stop" onclick="key('stop')">Stop</button>
<button class="key" id="key-reset" onclick="key('reset')">Reset</button>
<button class="key" id="key-home" onclick="key('home')">Home</button>
<h2 style="margin-top:10px">IC card reader</h2>
<input id="card" value="0123456789ABCDEF" size="20" maxlength="32"><button id="hold-card" onclick="act({action:'card',id:v('card')})">Hold card</button>
<h2 style="margin-top:10px">Log in</h2>
<input id="login-user" placeholder="user" size="8" maxlength="32"><input id="login-pw" type="password" placeholder="password" size="8" maxlength="32">
<button id="login" onclick="act({action:'login',user:v('login-user'),pw:v('login-pw')})">Log in</button>
<button id="logout" onclick="act({action:'logout'})">Log out</button>
</section>
<section><h2>Scan to e-mail</h2>
<div>destination: <span id="destination" class="val">-</span></div>
<input id="prefix" placeholder="name in the address book" size="18" maxlength="64"><button id="search" onclick="search()">Search</button>
<select id="found" size="5" style="width:100%" onchange="choose()"></select>
<div>pages <input id="pages" type="number" min="1" max="99" value="3" style="width:50px"> (the Start key scans these too)
<button id="scan" onclick="act({action:'scan',pages:v('pages')})">Scan to e-mail</button></div>
<table><thead><tr><th>job</th><th>state</th><th>pages</th></tr></thead><tbody id="jobs"></tbody></table>
<div>job log: <span id="joblog">-</span></div><div>send history: <span id="sendhistory">-</span></div>
</section>
<section><h2>Machine <button id="machine-read" onclick="act({action:'machine'})">Read again</button></h2><table id="machine"></table>
<h2 style="margin-top:10px">Status</h2><table id="status"></table></section>
<section><h2>Removable memory</h2>
<button id="usb0-plug" onclick="act({action:'usb',drive:0,plug:1})">Plug USB 0</button><button id="usb0-unplug" onclick="act({action:'usb',drive:0,plug:0})">Unplug USB 0</button><br>
<button id="usb1-plug" onclick="act({action:'usb',drive:1,plug:1})">Plug USB 1</button><button id="usb1-unplug" onclick="act({action:'usb',drive:1,plug:0})">Unplug USB 1</button><br>
copy <select id="copy-what"><option value="0">last scan</option><option value="4">4 MB document</option><option value="64">64 MB document</option></select>
to <select id="copy-drive"><option>0</option><option>1</option></select>
<select id="copy-rate"><option value="">full speed</option><option value="8">8 MB/s</option></select>
<button id="copy" onclick="copy()">Copy</button><button id="copy-cancel" onclick="act({action:'cancelCopy'})">Cancel copy</button>
<div>copy: <span id="copystate" class="val">-</span></div>
<h2 style="margin-top:10px">Document box</h2>
<select id="box-folder"><option>/Sales</option><option>/Engineering</option></select><button id="box" onclick="box()">List</button>
<div id="box-list" style="font-family:monospace;font-size:12px"></div></section>
<section><h2>Device</h2>
<button id="cover-open" onclick="act({action:'cover',open:1})">Open cover</button><button id="cover-close" onclick="act({action:'cover',open:0})">Close cover</button><br>
toner <button id="toner-low" onclick="act({action:'toner',level:'low'})">low</button><button id="toner-empty" onclick="act({action:'toner',level:'empty'})">empty</button><button id="toner-ok" onclick="act({action:'toner',level:'ok'})">ok</button><br>
paper tray <select id="tray"><option>1</option><option>2</option></select> level <input id="paper-level" type="number" min="0" max="100" value="10" style="width:50px"><button id="paper" onclick="act({action:'paper',tray:v('tray'),level:v('paper-level')})">Set</button><br>
<button id="sleep" onclick="act({action:'sleep',on:1})">Sleep</button><button id="wake" onclick="act({action:'sleep',on:0})">Wake</button></section>
<section><h2>Fail the next facade call</h2>
<input id="fail-op" list="ops" value="esv_zel_job_kick" size="28" maxlength="80"><datalist id="ops">
<option>esv_zel_job_kick</option><option>esv_zel_job_start</option><option>esv_zel_job_generate_jobinfo</option><option>esv_zel_job_commit_jobinfo</option>
<option>esv_zel_search_personal_address_list_prepare</option><option>esv_zel_user_account_login</option></datalist>
with <input id="fail-code" value="0x04010005" size="10" maxlength="12"><button id="fail" onclick="act({action:'fail',op:v('fail-op'),code:v('fail-code')})">Fail next</button><br>
job ends with error <input id="fault-code" value="0x55" size="6" maxlength="12"><button id="fault" onclick="act({action:'fault',code:v('fault-code')})">Inject</button></section>
<section class="wide"><h2>Last events</h2><div id="events"></div></section>
<section class="wide"><h2>Trace <input id="trace-filter" placeholder="filter" size="30" maxlength="100"></h2><div id="trace"></div></section>
</main>
<script>
"use strict";
const TOKEN=document.querySelector('meta[name=panel-token]').content;
let since=0,lastSeen=0,busy=false,again=false,recording=false;const shown=[];
function v(id){return document.getElementById(id).value}
function t(id,s){document.getElementById(id).textContent=s}
function say(s,ok){const m=document.getElementById('message');m.textContent=s;m.className=ok?'okm':'err'}
function offline(yes){
  if(yes&&!document.body.classList.contains('offline'))t('offline-since',lastSeen?new Date(lastSeen).toLocaleTimeString():'-');
  document.body.classList.toggle('offline',yes);
}
async function post(p){
  let r;
  try{r=await fetch('/api/action',{method:'POST',headers:{'Content-Type':'application/json','X-Panel-Token':TOKEN},body:JSON.stringify(p)})}
  catch(e){offline(true);return {ok:false,error:'the panel server does not answer'}}
  try{return await r.json()}catch(e){return {ok:false,error:'the panel answered '+r.status}}
}
async function act(p){
  const r=await post(p);
  if(r.ok)say(r.message||p.action+': done',true);else say(p.action+': '+r.error,false);
  refresh();return r;
}
async function key(k){
  const t0=performance.now();const click=performance.timeOrigin+t0;
  const p={action:'key',key:k};if(k==='start')p.pages=v('pages');
  const r=await post(p);const ms=performance.now()-t0;
  if(!r.ok){say('key '+k+': '+r.error,false);return}
  const toListener=r.listenerEpochMs-click;
  t('lastKey',k);t('keyLatency',toListener.toFixed(1)+' ms (device event to listener '+r.keyLatencyMicros.toFixed(0)+' us, confirmed after '+ms.toFixed(1)+' ms)');
  document.body.dataset.keyRoundTripMs=ms.toFixed(2);document.body.dataset.keyListenerUs=r.keyLatencyMicros.toFixed(1);
  document.body.dataset.keyClickToListenerMs=toListener.toFixed(3);
  say('key '+k+': pressed',true);refresh();
}
async function search(){
  const r=await post({action:'search',prefix:v('prefix')});if(!r.ok){say('search: '+r.error,false);return}
  const s=document.getElementById('found');s.innerHTML='';
  for(const f of r.found){const o=document.createElement('option');o.textContent=f;o.value=f.split(' <')[0];s.appendChild(o)}
  say(r.message,true);
}
async function box(){const r=await post({action:'box',folder:v('box-folder')});if(!r.ok){say('box: '+r.error,false);return}
  t('box-list',r.documents.length?r.documents.join(', '):'(empty)');say(r.message,true)}
function choose(){act({action:'destination',prefix:v('found')})}
function copy(){const p={action:'copy',drive:v('copy-drive')};if(v('copy-what')!=='0')p.mb=v('copy-what');if(v('copy-rate'))p.rate=v('copy-rate');act(p)}
function record(){act({action:'record',on:recording?0:1})}
function rows(id,obj){const tb=document.getElementById(id);tb.innerHTML='';
  for(const k in obj){const tr=document.createElement('tr');const a=document.createElement('td');const b=document.createElement('td');
    a.textContent=k;b.textContent=obj[k];b.className='val';tr.appendChild(a);tr.appendChild(b);tb.appendChild(tr)}}
// One refresh at a time: a request for another while one runs is done once it ends, so every
// event is taken once.
async function refresh(){
  if(busy){again=true;return}
  busy=true;
  try{
    let s;
    try{const r=await fetch('/api/state?since='+since+'&trace='+encodeURIComponent(v('trace-filter')),{headers:{'X-Panel-Token':TOKEN}});
      if(!r.ok){offline(true);say('panel: '+((await r.json()).error||r.status),false);return}
      s=await r.json()}
    catch(e){offline(true);return}
    offline(false);lastSeen=Date.now();show(s);
  }finally{busy=false;if(again){again=false;refresh()}}
}
function show(s){
  const a=s.app;t('user',a.user?a.user+' ('+a.userName+')':'(nobody)');document.body.dataset.user=a.user;
  t('power',s.powerState===0?'awake':'asleep ('+s.powerState+')');t('destination',a.destination||'-');
  const tb=document.getElementById('jobs');tb.innerHTML='';
  for(const id in a.jobs){const tr=document.createElement('tr');tr.id='job-'+id;
    for(const c of [id,a.jobs[id],a.pages[id]||'0']){const td=document.createElement('td');td.textContent=c;tr.appendChild(td)}tb.appendChild(tr)}
  t('joblog',a.jobLog||'-');t('sendhistory',a.sendHistory||'-');
  const cs=document.getElementById('copystate');cs.textContent=a.copy||'-';cs.className='val'+(/^(failed|cancelled)/.test(a.copy)?' err':'');
  rows('machine',s.machine);
  rows('status',{toner:a.toner,paper:a.paper||'-',cover:a.cover,sleep:a.sleep,usb:a.usb||'-','card reader':a.reader||'-'});
  for(const e of s.events){if(e.seq<=since)continue;
    shown.push({seq:e.seq,text:new Date(e.time).toISOString().substring(11,23)+'  '+e.kind+' '+e.text});since=e.seq}
  while(shown.length>200)shown.shift();
  const ev=document.getElementById('events');ev.innerHTML='';
  for(let i=shown.length-1;i>=0;--i){const d=document.createElement('div');d.dataset.seq=shown[i].seq;d.textContent=shown[i].text;ev.appendChild(d)}
  document.getElementById('trace').textContent=s.trace.slice().reverse().join(String.fromCharCode(10));
  document.body.dataset.lastEvent=shown.length?shown[shown.length-1].text:'';
  recording=s.recording.on;const rb=document.getElementById('record');rb.classList.toggle('on',recording);
  rb.textContent=recording?'Stop recording':'Record';
  t('recording',recording?'recording ('+s.recording.steps+' steps) to '+s.recording.file:(s.recording.file?'last: '+s.recording.file:''));
}
refresh();setInterval(refresh,400);
</script></body></html>
""";
}
